// The print surface: one document of pages that is drawn, previewed and sent to a printer.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/pictures.h"
#include "platform/value.h"

namespace td {

// `TextAlign`: where a text stands in its box or at the current point.
enum TextAlignCode : int { kAlignLeft = 6, kAlignCentre = 7, kAlignRight = 8 };

// `Orientation`: in landscape, width and height of the sheet swap when pages are drawn.
enum OrientationCode : std::int32_t { kPortrait = 0, kLandscape = 1 };

// `PaperSize`: codes of the printing system, and two of the surface's own.
inline constexpr std::int32_t kUserDefinedPaper = 256;  // PaperWidth by PaperHeight
inline constexpr std::int32_t kKeepPaper = 0;  // in a format: the surface's own paper stays

// `MousePointer`: the pointer over the surface.
enum MousePointerShape : std::int32_t { kArrowPointer = 1, kWaitingPointer = 11 };

// `ExportFormat`: what the export file is written as.
inline constexpr std::int32_t kExportHtml = 1;

// The kind of ShowPageSetup's dialog; there is no other.
inline constexpr std::int32_t kPageSetupDialog = 1;

// What the surface calls while a document is built, on the same thread and inside the operation
// that caused it. A failure that a handler lets through leaves that operation.
struct SurfaceEvents {
  std::function<void()> OnNewPage;  // a page has just begun; PageCount counts it already
  std::function<void()> OnEndPage;  // a page is about to end
  std::function<void()> OnEndDoc;   // all pages are finished
};

// Lengths are twips (1,440 to the inch) from the paper's top left corner, font sizes are points,
// pages count from 1. Starting values: margins 1440 on each side, Arial at 11.25 points, Zoom 100,
// TableSeparators "|;", PreviewPage 1, an empty document.
//
// The document is empty, open (from StartDoc to EndDoc) or closed. Drawing goes to the current page
// of the open document, or between StartOverlay and EndOverlay to the reopened page.
class PrintSurface {
 public:
  virtual ~PrintSurface() = default;

  virtual void Connect(SurfaceEvents events) = 0;

  // Font of the following text.
  virtual std::string FontName() = 0;
  virtual void PutFontName(const std::string& name) = 0;
  virtual double FontSize() = 0;
  virtual void PutFontSize(double points) = 0;
  virtual bool FontBold() = 0;
  virtual void PutFontBold(bool bold) = 0;
  virtual bool FontItalic() = 0;
  virtual void PutFontItalic(bool italic) = 0;

  // A TextAlignCode; each is centred vertically in the box of TextBox.
  virtual int TextAlign() = 0;
  virtual void PutTextAlign(int code) = 0;

  // Width of the lines of DrawLine, twips.
  virtual double PenWidth() = 0;
  virtual void PutPenWidth(double width) = 0;

  // The point at which PutParagraph and PutText write. After writing, CurrentY is the bottom of
  // what was written; yet behind a PutText without a line end, what is written next stands in the
  // same line until a new point is set.
  virtual double CurrentX() = 0;
  virtual void PutCurrentX(double x) = 0;
  virtual double CurrentY() = 0;
  virtual void PutCurrentY(double y) = 0;

  // An OrientationCode.
  virtual std::int32_t Orientation() = 0;
  virtual void PutOrientation(std::int32_t orientation) = 0;

  // The paper code. Writing a known one sets width and height; an unknown one leaves them. Writing
  // a width or height makes the code kUserDefinedPaper.
  virtual std::int32_t PaperSize() = 0;
  virtual void PutPaperSize(std::int32_t code) = 0;
  virtual float PaperWidth() = 0;
  virtual void PutPaperWidth(float width) = 0;
  virtual float PaperHeight() = 0;
  virtual void PutPaperHeight(float height) = 0;

  virtual double MarginLeft() = 0;
  virtual void PutMarginLeft(double margin) = 0;
  virtual double MarginTop() = 0;
  virtual void PutMarginTop(double margin) = 0;
  virtual double MarginRight() = 0;
  virtual void PutMarginRight(double margin) = 0;
  virtual double MarginBottom() = 0;
  virtual void PutMarginBottom(double margin) = 0;

  // The current printer. An unknown name fails with kInvalidProperty and leaves the default
  // printer selected; the empty text selects the default printer.
  virtual std::string Device() = 0;
  virtual void PutDevice(const std::string& name) = 0;
  virtual int DeviceCount() = 0;
  virtual std::string DeviceName(int index) = 0;  // from 0

  // Pages so far, the current one included. More than 32,767 pages fail with kOverflow.
  virtual std::int16_t PageCount() = 0;

  // The preview. EndDoc leaves PreviewPage at 1.
  virtual std::int16_t PreviewPage() = 0;
  virtual void PutPreviewPage(std::int16_t page) = 0;
  virtual double Zoom() = 0;
  virtual void PutZoom(double percent) = 0;
  virtual std::int32_t MousePointer() = 0;
  virtual void PutMousePointer(std::int32_t shape) = 0;  // a MousePointerShape

  virtual std::string TableSeparators() = 0;
  virtual void PutTableSeparators(const std::string& separators) = 0;

  // The file that receives the finished document beside the printer, and its kind.
  virtual std::string ExportFile() = 0;
  virtual void PutExportFile(const std::string& path) = 0;
  virtual std::int32_t ExportFormat() = 0;
  virtual void PutExportFormat(std::int32_t format) = 0;

  // Opens a document on page 1, replacing a closed or open one, and fires OnNewPage.
  virtual void StartDoc() = 0;
  // Fires OnEndPage and OnEndDoc, then closes the document.
  virtual void EndDoc() = 0;
  // Fires OnEndPage, begins the next page, fires OnNewPage.
  virtual void NewPage() = 0;
  // Throws the document away.
  virtual void ClearDoc() = 0;

  // Sends all pages to the printer without a dialog.
  virtual void PrintDoc() = 0;
  // The same, after the printer dialog if `withDialog`.
  virtual void PrintDoc(bool withDialog) = 0;
  // Shows the page-setup dialog on the surface's own paper, orientation, margins and printer.
  // Non-zero if the user confirmed; the choices then stand in the properties.
  virtual std::int32_t ShowPageSetup(std::int32_t kind) = 0;

  // Text in a rectangle, in one line unless `wordWrap` is set.
  virtual void TextBox(const std::string& text, double left, double top, double width,
                       double height) = 0;
  virtual void TextBox(const std::string& text, double left, double top, double width,
                       double height, const StoredFlag& wordWrap) = 0;
  // Text at the current point: a paragraph, a run of text with no line end of its own, rich text.
  virtual void PutParagraph(const std::string& text) = 0;
  virtual void PutText(const std::string& text) = 0;
  virtual void PutRichText(const std::string& rtf) = 0;
  virtual void DrawLine(double x1, double y1, double x2, double y2) = 0;
  // A picture at its natural size, or scaled to a size.
  virtual void DrawPicture(const PictureRef& picture, double left, double top) = 0;
  virtual void DrawPicture(const PictureRef& picture, double left, double top, double width,
                           double height) = 0;

  // Only inside OnEndDoc: reopens a finished page, so that drawing lands on top of it.
  virtual void StartOverlay(std::int16_t page) = 0;
  virtual void EndOverlay() = 0;
};

}  // namespace td
