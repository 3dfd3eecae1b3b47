// The pages of one print window as lists of drawing commands. It knows no output: a renderer reads
// Pages(), and what the document can't know it asks of its DocumentHost.
//
// Failures beside those of PrintSurface, all with a Chinese description: kInvalidCall for an
// operation that the document's state does not allow (drawing while no document is open, StartDoc,
// EndDoc or NewPage inside an event, an overlay outside OnEndDoc) and for a number that is not
// finite; kOverflow for a number that is too large to be a place on paper. A failed operation
// changes nothing but what its events have drawn.
//
// When a handler's failure leaves StartDoc or NewPage, the page that has begun stays; when it
// leaves EndDoc, the document stays open. The operation can be called again and then runs whole,
// its events included. A handler that clears the document ends the operation that fired it.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "page_document/document_host.h"
#include "page_document/drawing.h"
#include "platform/print_surface.h"

namespace td {

class PageDocument : public PrintSurface {
 public:
  enum class State { kEmpty, kOpen, kClosed };

  // `host` outlives the document. The sheet is the host's DefaultSheet() at the start, A4 where
  // there is none; the host is asked when the sheet is needed, and not if all of it was written.
  explicit PageDocument(DocumentHost& host);
  PageDocument(const PageDocument&) = delete;
  PageDocument& operator=(const PageDocument&) = delete;

  [[nodiscard]] State GetState() const { return state_; }
  // The pages so far; valid until the next operation that draws, begins or clears pages.
  [[nodiscard]] const std::vector<Page>& Pages() const { return pages_; }

  void Connect(SurfaceEvents events) override;

  std::string FontName() override { return font_.name; }
  void PutFontName(const std::string& name) override { font_.name = name; }
  double FontSize() override { return font_.points; }
  void PutFontSize(double points) override;
  bool FontBold() override { return font_.bold; }
  void PutFontBold(bool bold) override { font_.bold = bold; }
  bool FontItalic() override { return font_.italic; }
  void PutFontItalic(bool italic) override { font_.italic = italic; }
  int TextAlign() override { return textAlign_; }
  // Codes other than 7 and 8 place text as 6 does.
  void PutTextAlign(int code) override { textAlign_ = code; }
  double PenWidth() override { return penWidth_; }
  void PutPenWidth(double width) override;
  // Behind a text that PutText wrote, CurrentX is the end of its last line and CurrentY the bottom
  // of that line; yet what is written next goes on in the line. A new CurrentY ends it, a new
  // CurrentX alone is a place in it.
  double CurrentX() override;
  void PutCurrentX(double x) override;
  double CurrentY() override;
  void PutCurrentY(double y) override;

  // Paper and orientation hold for the pages that begin afterwards.
  std::int32_t Orientation() override { return orientation_; }
  void PutOrientation(std::int32_t orientation) override { orientation_ = orientation; }
  std::int32_t PaperSize() override;
  // 0 keeps the paper that is set. A code that is no standard number and not 256 keeps its size,
  // and the host is told.
  void PutPaperSize(std::int32_t code) override;
  float PaperWidth() override;
  void PutPaperWidth(float width) override;
  float PaperHeight() override;
  void PutPaperHeight(float height) override;
  double MarginLeft() override { return marginLeft_; }
  void PutMarginLeft(double margin) override;
  double MarginTop() override { return marginTop_; }
  void PutMarginTop(double margin) override;
  double MarginRight() override { return marginRight_; }
  void PutMarginRight(double margin) override;
  double MarginBottom() override { return marginBottom_; }
  void PutMarginBottom(double margin) override;

  std::string Device() override;
  void PutDevice(const std::string& name) override;
  // A walk over the printers begins with their count, which is when the list is read.
  int DeviceCount() override;
  std::string DeviceName(int index) override;

  std::int16_t PageCount() override { return static_cast<std::int16_t>(pages_.size()); }
  std::int16_t PreviewPage() override { return previewPage_; }
  void PutPreviewPage(std::int16_t page) override;
  double Zoom() override { return zoom_; }
  void PutZoom(double percent) override;
  std::int32_t MousePointer() override { return mousePointer_; }
  void PutMousePointer(std::int32_t shape) override;
  std::string TableSeparators() override { return tableSeparators_; }
  void PutTableSeparators(const std::string& separators) override { tableSeparators_ = separators; }
  std::string ExportFile() override { return exportFile_; }
  void PutExportFile(const std::string& path) override { exportFile_ = path; }
  std::int32_t ExportFormat() override { return exportFormat_; }
  void PutExportFormat(std::int32_t format) override { exportFormat_ = format; }

  void StartDoc() override;
  // Writes the export file at its end if ExportFile is not empty.
  void EndDoc() override;
  void NewPage() override;
  void ClearDoc() override;
  void PrintDoc() override { PrintDoc(false); }
  void PrintDoc(bool withDialog) override;
  std::int32_t ShowPageSetup(std::int32_t kind) override;

  void TextBox(const std::string& text, double left, double top, double width,
               double height) override;
  void TextBox(const std::string& text, double left, double top, double width, double height,
               const StoredFlag& wordWrap) override;
  void PutParagraph(const std::string& text) override;
  // The empty text writes nothing and leaves the current point; a line break at the end of a text
  // ends its last line and begins none. The lines behind a break begin where the first one began,
  // under the alignment of the moment.
  void PutText(const std::string& text) override;
  void PutRichText(const std::string& rtf) override;
  void DrawLine(double x1, double y1, double x2, double y2) override;
  // An empty picture draws nothing.
  void DrawPicture(const PictureRef& picture, double left, double top) override;
  void DrawPicture(const PictureRef& picture, double left, double top, double width,
                   double height) override;

  void StartOverlay(std::int16_t page) override;
  void EndOverlay() override;

 protected:
  // How the lines of what is written next stand.
  [[nodiscard]] TextAlignment Alignment() const;
  // Its font, shared by all texts of the document that have it.
  FontRef Font() { return SharedFont(font_); }

 private:
  enum class Event { kNone, kNewPage, kEndPage, kEndDoc };

  void Fire(Event event, const std::function<void()>& handler);
  void RequireOutsideEvents(const char* operation) const;
  void RequireOpen(const char* operation) const;
  void BeginPage();
  Page& CurrentPage();
  void CompleteSheet();
  void PutPaperSide(std::optional<float>& side, float twips);
  void AddBoxText(const std::string& text, double left, double top, double width, double height,
                  bool wordWrap);
  void WriteLines(std::vector<TextLine> lines, bool endsLastLine);
  PointText& OpenLine() { return CurrentPage().commands.TextAt(*openLine_); }
  void EndOpenLine();
  void LeaveOverlay();
  FontRef SharedFont(const TextFont& font);

  DocumentHost& host_;
  SurfaceEvents events_;
  State state_ = State::kEmpty;
  Event firing_ = Event::kNone;
  std::vector<Page> pages_;
  std::int16_t overlayPage_ = 0;  // 0: none
  std::map<TextFont, FontRef> fonts_;

  TextFont font_;
  int textAlign_ = 6;
  double penWidth_ = 14;
  double currentX_ = 0;
  double currentY_ = 0;
  // The command on the current page whose only line goes on; it begins at the current point.
  std::optional<std::size_t> openLine_;
  std::int32_t orientation_ = 0;
  // What was not written yet, nor asked for, is empty.
  std::optional<std::int32_t> paperSize_;
  std::optional<float> paperWidth_;
  std::optional<float> paperHeight_;
  double marginLeft_ = 1440;
  double marginTop_ = 1440;
  double marginRight_ = 1440;
  double marginBottom_ = 1440;
  std::string device_;                    // empty: the default printer
  std::vector<std::string> deviceNames_;  // as they were counted last
  std::int16_t previewPage_ = 1;
  double zoom_ = 100;
  std::int32_t mousePointer_ = 0;
  std::string tableSeparators_ = "|;";
  std::string exportFile_;
  std::int32_t exportFormat_ = 0;
};

}  // namespace td
