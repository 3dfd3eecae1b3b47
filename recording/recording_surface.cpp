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

constexpr std::int32_t kUserPaper = 256;

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
      state_.paper_size = kUserPaper;
    }
  }
}

void RecordingSurface::ExpectPageSetup(std::optional<PageSetupAnswer> answer) {
  page_setup_ = std::move(answer);
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
  const bool is_known =
      name == printers_.preferred || std::find(names.begin(), names.end(), name) != names.end();
  state_.device = is_known ? name : printers_.preferred;
  if (!is_known && !name.empty()) {
    throw Failure(kInvalidProperty, "无效的属性值");
  }
}

std::string RecordingSurface::FontName() {
  return state_.font_name;
}
void RecordingSurface::PutFontName(const std::string& name) {
  Put("FontName", &SurfaceState::font_name, name);
}

double RecordingSurface::FontSize() {
  return state_.font_size;
}
void RecordingSurface::PutFontSize(double points) {
  Put("FontSize", &SurfaceState::font_size, points);
}

bool RecordingSurface::FontBold() {
  return state_.font_bold;
}
void RecordingSurface::PutFontBold(bool bold) {
  Put("FontBold", &SurfaceState::font_bold, bold);
}

bool RecordingSurface::FontItalic() {
  return state_.font_italic;
}
void RecordingSurface::PutFontItalic(bool italic) {
  Put("FontItalic", &SurfaceState::font_italic, italic);
}

int RecordingSurface::TextAlign() {
  return state_.text_align;
}
void RecordingSurface::PutTextAlign(int code) {
  Put("TextAlign", &SurfaceState::text_align, code);
}

double RecordingSurface::PenWidth() {
  return state_.pen_width;
}
void RecordingSurface::PutPenWidth(double width) {
  Put("PenWidth", &SurfaceState::pen_width, width);
}

double RecordingSurface::CurrentX() {
  return state_.current_x;
}
void RecordingSurface::PutCurrentX(double x) {
  Put("CurrentX", &SurfaceState::current_x, x);
}

double RecordingSurface::CurrentY() {
  return state_.current_y;
}
void RecordingSurface::PutCurrentY(double y) {
  Put("CurrentY", &SurfaceState::current_y, y);
}

std::int32_t RecordingSurface::Orientation() {
  return state_.orientation;
}
void RecordingSurface::PutOrientation(std::int32_t orientation) {
  Put("Orientation", &SurfaceState::orientation, orientation);
}

std::int32_t RecordingSurface::PaperSize() {
  return state_.paper_size;
}
void RecordingSurface::PutPaperSize(std::int32_t code) {
  Put("PaperSize", &SurfaceState::paper_size, code);
}

float RecordingSurface::PaperWidth() {
  return state_.paper_width;
}
void RecordingSurface::PutPaperWidth(float width) {
  Put("PaperWidth", &SurfaceState::paper_width, width);
  state_.paper_size = kUserPaper;
}

float RecordingSurface::PaperHeight() {
  return state_.paper_height;
}
void RecordingSurface::PutPaperHeight(float height) {
  Put("PaperHeight", &SurfaceState::paper_height, height);
  state_.paper_size = kUserPaper;
}

double RecordingSurface::MarginLeft() {
  return state_.margin_left;
}
void RecordingSurface::PutMarginLeft(double margin) {
  Put("MarginLeft", &SurfaceState::margin_left, margin);
}

double RecordingSurface::MarginTop() {
  return state_.margin_top;
}
void RecordingSurface::PutMarginTop(double margin) {
  Put("MarginTop", &SurfaceState::margin_top, margin);
}

double RecordingSurface::MarginRight() {
  return state_.margin_right;
}
void RecordingSurface::PutMarginRight(double margin) {
  Put("MarginRight", &SurfaceState::margin_right, margin);
}

double RecordingSurface::MarginBottom() {
  return state_.margin_bottom;
}
void RecordingSurface::PutMarginBottom(double margin) {
  Put("MarginBottom", &SurfaceState::margin_bottom, margin);
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
  return state_.preview_page;
}
void RecordingSurface::PutPreviewPage(std::int16_t page) {
  Put("PreviewPage", &SurfaceState::preview_page, page);
}

double RecordingSurface::Zoom() {
  return state_.zoom;
}
void RecordingSurface::PutZoom(double percent) {
  Put("Zoom", &SurfaceState::zoom, percent);
}

std::int32_t RecordingSurface::MousePointer() {
  return state_.mouse_pointer;
}
void RecordingSurface::PutMousePointer(std::int32_t shape) {
  Put("MousePointer", &SurfaceState::mouse_pointer, shape);
}

std::string RecordingSurface::TableSeparators() {
  return state_.table_separators;
}
void RecordingSurface::PutTableSeparators(const std::string& separators) {
  Put("TableSeparators", &SurfaceState::table_separators, separators);
}

std::string RecordingSurface::ExportFile() {
  return state_.export_file;
}
void RecordingSurface::PutExportFile(const std::string& path) {
  Put("ExportFile", &SurfaceState::export_file, path);
}

std::int32_t RecordingSurface::ExportFormat() {
  return state_.export_format;
}
void RecordingSurface::PutExportFormat(std::int32_t format) {
  Put("ExportFormat", &SurfaceState::export_format, format);
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
  state_.preview_page = 1;
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
  if (!page_setup_ || !page_setup_->confirms) {
    return 0;
  }
  PutAsUser(page_setup_->put);
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
