#include "recording/recording_surface.h"

#include <algorithm>
#include <limits>
#include <type_traits>
#include <utility>

#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "recording/recording_pictures.h"

namespace td::recording {
namespace {

// The text of a request by which a fault tells it from others.
std::string MatchText(const Json& argument) {
  return argument.is_string() ? argument.get<std::string>() : argument.dump();
}

}  // namespace

RecordingSurface::RecordingSurface(Recorder& recorder, const Printers& printers, SurfaceState state)
    : recorder_(recorder), printers_(printers), state_(std::move(state)) {}

void RecordingSurface::PutAsUser(const SurfaceValues& values) {
  for (const auto& [name, value] : values) {
    if (name == "Device") {
      try {
        SelectPrinter(value.get<std::string>());
      } catch (const Failure&) {
        // The user sees the default printer then.
      }
      continue;
    }
    Assign(state_, name, value);
    if (name == "PaperWidth" || name == "PaperHeight") {
      state_.paperSize = kUserDefinedPaper;
    }
  }
}

void RecordingSurface::ExpectPageSetup(std::optional<PageSetupAnswer> answer) {
  pageSetup_ = std::move(answer);
}

void RecordingSurface::Connect(SurfaceEvents events) {
  events_ = std::move(events);
}

template <typename T>
void RecordingSurface::Put(const std::string& property, T SurfaceState::*member, const T& value) {
  Json json = value;
  if constexpr (std::is_floating_point_v<T>) {
    json = ToJson(value);
  }
  recorder_.Write("put", {{"p", property}, {"v", json}});
  recorder_.Request("put:" + property, MatchText(json));
  state_.*member = value;
}

void RecordingSurface::Call(const char* operation, const Json& arguments) {
  recorder_.Write("call", {{"f", operation}, {"a", arguments}});
  if (arguments.empty()) {
    recorder_.Request(operation);
  } else {
    recorder_.Request(operation, MatchText(arguments.front()));
  }
}

void RecordingSurface::Fire(const char* event, const std::function<void()>& handler) {
  recorder_.Write("event", {{"n", event}});
  if (handler) {
    handler();
  }
}

void RecordingSurface::SelectPrinter(const std::string& name) {
  const auto& names = printers_.names;
  const bool isKnown =
      name == printers_.preferred || std::find(names.begin(), names.end(), name) != names.end();
  state_.device = isKnown ? name : printers_.preferred;
  if (!isKnown && !name.empty()) {
    throw Failure(kInvalidProperty, "无效的属性值");
  }
}

std::string RecordingSurface::FontName() {
  return state_.fontName;
}
void RecordingSurface::PutFontName(const std::string& name) {
  Put("FontName", &SurfaceState::fontName, name);
}

double RecordingSurface::FontSize() {
  return state_.fontSize;
}
void RecordingSurface::PutFontSize(double points) {
  Put("FontSize", &SurfaceState::fontSize, points);
}

bool RecordingSurface::FontBold() {
  return state_.fontBold;
}
void RecordingSurface::PutFontBold(bool bold) {
  Put("FontBold", &SurfaceState::fontBold, bold);
}

bool RecordingSurface::FontItalic() {
  return state_.fontItalic;
}
void RecordingSurface::PutFontItalic(bool italic) {
  Put("FontItalic", &SurfaceState::fontItalic, italic);
}

int RecordingSurface::TextAlign() {
  return state_.textAlign;
}
void RecordingSurface::PutTextAlign(int code) {
  Put("TextAlign", &SurfaceState::textAlign, code);
}

double RecordingSurface::PenWidth() {
  return state_.penWidth;
}
void RecordingSurface::PutPenWidth(double width) {
  Put("PenWidth", &SurfaceState::penWidth, width);
}

double RecordingSurface::CurrentX() {
  return state_.currentX;
}
void RecordingSurface::PutCurrentX(double x) {
  Put("CurrentX", &SurfaceState::currentX, x);
}

double RecordingSurface::CurrentY() {
  return state_.currentY;
}
void RecordingSurface::PutCurrentY(double y) {
  Put("CurrentY", &SurfaceState::currentY, y);
}

std::int32_t RecordingSurface::Orientation() {
  return state_.orientation;
}
void RecordingSurface::PutOrientation(std::int32_t orientation) {
  Put("Orientation", &SurfaceState::orientation, orientation);
}

std::int32_t RecordingSurface::PaperSize() {
  return state_.paperSize;
}
void RecordingSurface::PutPaperSize(std::int32_t code) {
  Put("PaperSize", &SurfaceState::paperSize, code);
}

float RecordingSurface::PaperWidth() {
  return state_.paperWidth;
}
void RecordingSurface::PutPaperWidth(float width) {
  Put("PaperWidth", &SurfaceState::paperWidth, width);
  state_.paperSize = kUserDefinedPaper;
}

float RecordingSurface::PaperHeight() {
  return state_.paperHeight;
}
void RecordingSurface::PutPaperHeight(float height) {
  Put("PaperHeight", &SurfaceState::paperHeight, height);
  state_.paperSize = kUserDefinedPaper;
}

double RecordingSurface::MarginLeft() {
  return state_.marginLeft;
}
void RecordingSurface::PutMarginLeft(double margin) {
  Put("MarginLeft", &SurfaceState::marginLeft, margin);
}

double RecordingSurface::MarginTop() {
  return state_.marginTop;
}
void RecordingSurface::PutMarginTop(double margin) {
  Put("MarginTop", &SurfaceState::marginTop, margin);
}

double RecordingSurface::MarginRight() {
  return state_.marginRight;
}
void RecordingSurface::PutMarginRight(double margin) {
  Put("MarginRight", &SurfaceState::marginRight, margin);
}

double RecordingSurface::MarginBottom() {
  return state_.marginBottom;
}
void RecordingSurface::PutMarginBottom(double margin) {
  Put("MarginBottom", &SurfaceState::marginBottom, margin);
}

std::string RecordingSurface::Device() {
  return state_.device;
}
void RecordingSurface::PutDevice(const std::string& name) {
  recorder_.Write("put", {{"p", "Device"}, {"v", name}});
  recorder_.Request("put:Device", name);
  SelectPrinter(name);
}

std::int16_t RecordingSurface::PreviewPage() {
  return state_.previewPage;
}
void RecordingSurface::PutPreviewPage(std::int16_t page) {
  Put("PreviewPage", &SurfaceState::previewPage, page);
}

double RecordingSurface::Zoom() {
  return state_.zoom;
}
void RecordingSurface::PutZoom(double percent) {
  Put("Zoom", &SurfaceState::zoom, percent);
}

std::int32_t RecordingSurface::MousePointer() {
  return state_.mousePointer;
}
void RecordingSurface::PutMousePointer(std::int32_t shape) {
  Put("MousePointer", &SurfaceState::mousePointer, shape);
}

std::string RecordingSurface::TableSeparators() {
  return state_.tableSeparators;
}
void RecordingSurface::PutTableSeparators(const std::string& separators) {
  Put("TableSeparators", &SurfaceState::tableSeparators, separators);
}

std::string RecordingSurface::ExportFile() {
  return state_.exportFile;
}
void RecordingSurface::PutExportFile(const std::string& path) {
  Put("ExportFile", &SurfaceState::exportFile, path);
}

std::int32_t RecordingSurface::ExportFormat() {
  return state_.exportFormat;
}
void RecordingSurface::PutExportFormat(std::int32_t format) {
  Put("ExportFormat", &SurfaceState::exportFormat, format);
}

int RecordingSurface::DeviceCount() {
  return static_cast<int>(printers_.names.size());
}

std::string RecordingSurface::DeviceName(int index) {
  if (index < 0 || index >= DeviceCount()) {
    throw InvalidCallFailure();
  }
  return printers_.names[static_cast<std::size_t>(index)];
}

std::int16_t RecordingSurface::PageCount() {
  if (pages_ > std::numeric_limits<std::int16_t>::max()) {
    throw OverflowFailure();
  }
  return static_cast<std::int16_t>(pages_);
}

void RecordingSurface::StartDoc() {
  Call("StartDoc");
  pages_ = 1;
  Fire("OnNewPage", events_.OnNewPage);
}

void RecordingSurface::EndDoc() {
  Call("EndDoc");
  Fire("OnEndPage", events_.OnEndPage);
  Fire("OnEndDoc", events_.OnEndDoc);
  state_.previewPage = 1;
}

void RecordingSurface::NewPage() {
  Call("NewPage");
  Fire("OnEndPage", events_.OnEndPage);
  ++pages_;
  Fire("OnNewPage", events_.OnNewPage);
}

void RecordingSurface::ClearDoc() {
  Call("ClearDoc");
  pages_ = 0;
}

void RecordingSurface::PrintDoc() {
  Call("PrintDoc");
}

void RecordingSurface::PrintDoc(bool withDialog) {
  Call("PrintDoc", Json::array({withDialog}));
}

std::int32_t RecordingSurface::ShowPageSetup(std::int32_t kind) {
  Call("ShowPageSetup", Json::array({kind}));
  if (!pageSetup_ || !pageSetup_->confirms) {
    return 0;
  }
  PutAsUser(pageSetup_->put);
  return 1;
}

void RecordingSurface::TextBox(const std::string& text, double left, double top, double width,
                               double height) {
  Call("TextBox", Json::array({text, ToJson(left), ToJson(top), ToJson(width), ToJson(height)}));
}

void RecordingSurface::TextBox(const std::string& text, double left, double top, double width,
                               double height, const StoredFlag& wordWrap) {
  Call("TextBox", Json::array({text, ToJson(left), ToJson(top), ToJson(width), ToJson(height),
                               ToJson(wordWrap.value)}));
}

void RecordingSurface::PutParagraph(const std::string& text) {
  Call("PutParagraph", Json::array({text}));
}

void RecordingSurface::PutText(const std::string& text) {
  Call("PutText", Json::array({text}));
}

void RecordingSurface::PutRichText(const std::string& rtf) {
  Call("PutRichText", Json::array({rtf}));
}

void RecordingSurface::DrawLine(double x1, double y1, double x2, double y2) {
  Call("DrawLine", Json::array({ToJson(x1), ToJson(y1), ToJson(x2), ToJson(y2)}));
}

void RecordingSurface::DrawPicture(const PictureRef& picture, double left, double top) {
  Call("DrawPicture", Json::array({OriginOf(picture), ToJson(left), ToJson(top)}));
}

void RecordingSurface::DrawPicture(const PictureRef& picture, double left, double top, double width,
                                   double height) {
  Call("DrawPicture",
       Json::array({OriginOf(picture), ToJson(left), ToJson(top), ToJson(width), ToJson(height)}));
}

void RecordingSurface::StartOverlay(std::int16_t page) {
  Call("StartOverlay", Json::array({page}));
}

void RecordingSurface::EndOverlay() {
  Call("EndOverlay");
}

}  // namespace td::recording
