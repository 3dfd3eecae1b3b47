// The print surface of a replay: draws nothing and records everything.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/print_surface.h"
#include "recording/recorder.h"
#include "recording/surface_state.h"

namespace td::recording {

// What the user does in the page-setup dialog.
struct PageSetupAnswer {
  bool confirms = false;
  SurfaceValues put;
};

struct Printers {
  std::vector<std::string> names;
  std::string preferred;  // the default printer
};

class RecordingSurface : public PrintSurface {
 public:
  RecordingSurface(Recorder& recorder, const Printers& printers, SurfaceState state);

  // Writes properties as a user does: nothing is recorded, a refused printer leaves the default.
  void PutAsUser(const SurfaceValues& values);
  // What the user will answer from now on; cancels without an answer.
  void ExpectPageSetup(std::optional<PageSetupAnswer> answer);

  void Connect(SurfaceEvents events) override;

  std::string FontName() override;
  void PutFontName(const std::string& name) override;
  double FontSize() override;
  void PutFontSize(double points) override;
  bool FontBold() override;
  void PutFontBold(bool bold) override;
  bool FontItalic() override;
  void PutFontItalic(bool italic) override;
  int TextAlign() override;
  void PutTextAlign(int code) override;
  double PenWidth() override;
  void PutPenWidth(double width) override;
  double CurrentX() override;
  void PutCurrentX(double x) override;
  double CurrentY() override;
  void PutCurrentY(double y) override;
  std::int32_t Orientation() override;
  void PutOrientation(std::int32_t orientation) override;
  std::int32_t PaperSize() override;
  void PutPaperSize(std::int32_t code) override;
  float PaperWidth() override;
  void PutPaperWidth(float width) override;
  float PaperHeight() override;
  void PutPaperHeight(float height) override;
  double MarginLeft() override;
  void PutMarginLeft(double margin) override;
  double MarginTop() override;
  void PutMarginTop(double margin) override;
  double MarginRight() override;
  void PutMarginRight(double margin) override;
  double MarginBottom() override;
  void PutMarginBottom(double margin) override;
  std::string Device() override;
  void PutDevice(const std::string& name) override;
  int DeviceCount() override;
  std::string DeviceName(int index) override;
  std::int16_t PageCount() override;
  std::int16_t PreviewPage() override;
  void PutPreviewPage(std::int16_t page) override;
  double Zoom() override;
  void PutZoom(double percent) override;
  std::int32_t MousePointer() override;
  void PutMousePointer(std::int32_t shape) override;
  std::string TableSeparators() override;
  void PutTableSeparators(const std::string& separators) override;
  std::string ExportFile() override;
  void PutExportFile(const std::string& path) override;
  std::int32_t ExportFormat() override;
  void PutExportFormat(std::int32_t format) override;

  void StartDoc() override;
  void EndDoc() override;
  void NewPage() override;
  void ClearDoc() override;
  void PrintDoc() override;
  void PrintDoc(bool withDialog) override;
  std::int32_t ShowPageSetup(std::int32_t kind) override;

  void TextBox(const std::string& text, double left, double top, double width,
               double height) override;
  void TextBox(const std::string& text, double left, double top, double width, double height,
               const StoredFlag& wordWrap) override;
  void PutParagraph(const std::string& text) override;
  void PutText(const std::string& text) override;
  void PutRichText(const std::string& rtf) override;
  void DrawLine(double x1, double y1, double x2, double y2) override;
  void DrawPicture(const PictureRef& picture, double left, double top) override;
  void DrawPicture(const PictureRef& picture, double left, double top, double width,
                   double height) override;
  void StartOverlay(std::int16_t page) override;
  void EndOverlay() override;

 private:
  template <typename T>
  void Put(const std::string& property, T SurfaceState::*member, const T& value);
  void Call(const char* operation, const Json& arguments = Json::array());
  void Fire(const char* event, const std::function<void()>& handler);
  void SelectPrinter(const std::string& name);

  Recorder& recorder_;
  const Printers& printers_;
  SurfaceState state_;
  SurfaceEvents events_;
  std::optional<PageSetupAnswer> pageSetup_;
  std::int32_t pages_ = 0;
};

}  // namespace td::recording
