#include "page_document/page_document.h"

#include <cmath>
#include <limits>
#include <utility>

#include "page_document/pictures.h"
#include "page_document/rich_text.h"
#include "platform/failure.h"
#include "platform/lock_character.h"
#include "text/conversions.h"

namespace td {
namespace {

constexpr double kMaxFontPoints = 2000;
constexpr double kMaxPaperSide = 288'000;  // 200 inches, the longest side that a PDF page can have

void RequireInRange(const char* name, double number, double least, double most) {
  if (!std::isfinite(number)) {
    throw Failure(kInvalidCall, std::string(name) + "不是有效的数");
  }
  if (number < least || number > most) {
    throw Failure(kOverflow, std::string(name) + "超出允许的范围：" + ToText(number));
  }
}

void RequireCoordinate(const char* name, double number) {
  RequireInRange(name, number, -kMaxCoordinate, kMaxCoordinate);
}

template <typename T>
void PutCoordinate(T& property, const char* name, T number) {
  RequireCoordinate(name, number);
  property = number;
}

PictureSize NaturalSize(const Picture& picture) {
  if (const auto* image = dynamic_cast<const ImagePicture*>(&picture)) return image->NaturalSize();
  if (const auto* drawing = dynamic_cast<const VectorPicture*>(&picture)) {
    return drawing->NaturalSize();
  }
  throw Failure(kInvalidPicture, "无法绘制这种图片");
}

}  // namespace

PageDocument::PageDocument(DocumentHost& host) : host_(host) {
  PutPaperSize(kPaperA4);
}

void PageDocument::Connect(SurfaceEvents events) {
  events_ = std::move(events);
}

void PageDocument::PutFontSize(double points) {
  RequireInRange("字号", points, 0, kMaxFontPoints);
  font_.points = points;
}

void PageDocument::PutPenWidth(double width) {
  RequireInRange("线宽", width, 0, kMaxCoordinate);
  penWidth_ = width;
}

void PageDocument::PutCurrentX(double x) {
  PutCoordinate(currentX_, "横坐标", x);
}
void PageDocument::PutCurrentY(double y) {
  PutCoordinate(currentY_, "纵坐标", y);
}

void PageDocument::PutPaperSize(std::int32_t code) {
  if (code == kKeepPaper) return;
  std::optional<PaperExtent> paper = StandardPaper(code);
  if (!paper && code != kUserDefinedPaper) paper = host_.PaperOf(code, Device());
  paperSize_ = code;
  if (!paper) return;
  paperWidth_ = static_cast<float>(paper->width);
  paperHeight_ = static_cast<float>(paper->height);
}

void PageDocument::PutPaperSide(float& side, float twips) {
  RequireInRange("纸张尺寸", twips, 1, kMaxPaperSide);
  side = twips;
  paperSize_ = kUserDefinedPaper;
}

void PageDocument::PutPaperWidth(float width) {
  PutPaperSide(paperWidth_, width);
}
void PageDocument::PutPaperHeight(float height) {
  PutPaperSide(paperHeight_, height);
}

void PageDocument::PutMarginLeft(double margin) {
  PutCoordinate(marginLeft_, "左边距", margin);
}
void PageDocument::PutMarginTop(double margin) {
  PutCoordinate(marginTop_, "上边距", margin);
}
void PageDocument::PutMarginRight(double margin) {
  PutCoordinate(marginRight_, "右边距", margin);
}
void PageDocument::PutMarginBottom(double margin) {
  PutCoordinate(marginBottom_, "下边距", margin);
}

std::string PageDocument::Device() {
  return device_.empty() ? host_.DefaultDevice() : device_;
}

void PageDocument::PutDevice(const std::string& name) {
  device_.clear();
  if (name.empty()) return;
  if (!host_.HasDevice(name)) {
    throw Failure(kInvalidProperty,
                  WithoutLockCharacter("无效的属性值：找不到打印机“" + name + "”"));
  }
  device_ = name;
}

std::string PageDocument::DeviceName(int index) {
  if (index < 0 || index >= host_.DeviceCount()) {
    throw Failure(kInvalidCall, "没有序号为 " + std::to_string(index) + " 的打印机");
  }
  return host_.DeviceName(index);
}

void PageDocument::PutPreviewPage(std::int16_t page) {
  RequireInRange("预览页码", page, 1, std::numeric_limits<std::int16_t>::max());
  previewPage_ = page;
  host_.PreviewChanged(*this);
}

void PageDocument::PutZoom(double percent) {
  RequireInRange("缩放比例", percent, 1, 10'000);
  zoom_ = percent;
  host_.PreviewChanged(*this);
}

void PageDocument::PutMousePointer(std::int32_t shape) {
  mousePointer_ = shape;
  host_.PointerChanged(shape);
}

// ---- The document's states

void PageDocument::RequireOutsideEvents(const char* operation) const {
  if (firing_ != Event::kNone) {
    throw Failure(kInvalidCall, std::string("在文档事件中不能调用 ") + operation);
  }
}

void PageDocument::RequireOpen(const char* operation) const {
  if (state_ != State::kOpen) {
    throw Failure(kInvalidCall, std::string("没有打开的文档，不能调用 ") + operation);
  }
}

void PageDocument::Fire(Event event, const std::function<void()>& handler) {
  if (!handler) return;
  struct Scope {
    PageDocument& document;
    ~Scope() {
      document.firing_ = Event::kNone;
      document.overlayPage_ = 0;  // a handler that failed may have left a page open
    }
  } const scope{*this};
  firing_ = event;
  handler();
}

void PageDocument::BeginPage() {
  const bool landscape = orientation_ == 1;
  pages_.push_back(
      {landscape ? paperHeight_ : paperWidth_, landscape ? paperWidth_ : paperHeight_, {}});
}

void PageDocument::StartDoc() {
  RequireOutsideEvents("StartDoc");
  pages_.clear();
  fonts_.clear();
  previewPage_ = 1;
  state_ = State::kOpen;
  BeginPage();
  host_.PreviewChanged(*this);
  Fire(Event::kNewPage, events_.OnNewPage);
}

void PageDocument::NewPage() {
  RequireOutsideEvents("NewPage");
  RequireOpen("NewPage");
  if (pages_.size() >= static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) {
    throw Failure(kOverflow, "文档的页数超过了 32767");
  }
  Fire(Event::kEndPage, events_.OnEndPage);
  if (state_ != State::kOpen) return;
  BeginPage();
  Fire(Event::kNewPage, events_.OnNewPage);
}

void PageDocument::EndDoc() {
  RequireOutsideEvents("EndDoc");
  RequireOpen("EndDoc");
  Fire(Event::kEndPage, events_.OnEndPage);
  if (state_ == State::kOpen) Fire(Event::kEndDoc, events_.OnEndDoc);
  if (state_ != State::kOpen) return;
  state_ = State::kClosed;
  previewPage_ = 1;
  host_.PreviewChanged(*this);
  if (!exportFile_.empty()) host_.Export(*this, exportFile_, exportFormat_);
}

void PageDocument::ClearDoc() {
  pages_.clear();
  fonts_.clear();
  overlayPage_ = 0;
  state_ = State::kEmpty;
  host_.PreviewChanged(*this);
}

void PageDocument::PrintDoc(bool withDialog) {
  if (state_ != State::kClosed) {
    throw Failure(kInvalidCall, "没有已完成的文档可以打印");
  }
  host_.Print(*this, withDialog);
}

std::int32_t PageDocument::ShowPageSetup(std::int32_t) {
  return host_.ShowPageSetup(*this) ? 1 : 0;
}

void PageDocument::StartOverlay(std::int16_t page) {
  if (firing_ != Event::kEndDoc) {
    throw Failure(kInvalidCall, "只能在 OnEndDoc 事件中调用 StartOverlay");
  }
  RequireOpen("StartOverlay");
  if (overlayPage_ != 0) {
    throw Failure(kInvalidCall, "第 " + std::to_string(overlayPage_) + " 页的叠加尚未结束");
  }
  if (page < 1 || page > PageCount()) {
    throw Failure(kInvalidCall, "文档没有第 " + std::to_string(page) + " 页");
  }
  overlayPage_ = page;
}

void PageDocument::EndOverlay() {
  if (overlayPage_ == 0) throw Failure(kInvalidCall, "没有正在叠加的页，不能调用 EndOverlay");
  overlayPage_ = 0;
}

// ---- Drawing

Page& PageDocument::CurrentPage() {
  return overlayPage_ > 0 ? pages_[static_cast<std::size_t>(overlayPage_) - 1] : pages_.back();
}

FontRef PageDocument::SharedFont(const TextFont& font) {
  FontRef& shared = fonts_[font];
  if (!shared) shared = std::make_shared<const TextFont>(font);
  return shared;
}

TextAlignment PageDocument::Alignment() const {
  if (textAlign_ == 7) return TextAlignment::kCentre;
  return textAlign_ == 8 ? TextAlignment::kRight : TextAlignment::kLeft;
}

void PageDocument::AddBoxText(const std::string& text, double left, double top, double width,
                              double height, bool wordWrap) {
  RequireOpen("TextBox");
  RequireCoordinate("文本框的左边", left);
  RequireCoordinate("文本框的上边", top);
  RequireCoordinate("文本框的宽度", width);
  RequireCoordinate("文本框的高度", height);
  if (text.empty()) return;
  CurrentPage().commands.emplace_back(
      BoxText{text, left, top, width, height, wordWrap, Alignment(), SharedFont(font_)});
}

void PageDocument::TextBox(const std::string& text, double left, double top, double width,
                           double height) {
  AddBoxText(text, left, top, width, height, false);
}

void PageDocument::TextBox(const std::string& text, double left, double top, double width,
                           double height, const Value& wordWrap) {
  AddBoxText(text, left, top, width, height, !IsNull(wordWrap) && ToFlag(wordWrap));
}

void PageDocument::AddPointText(std::vector<TextLine> lines) {
  PointText command{std::move(lines), {}, currentX_, currentY_, Alignment()};
  double bottom = currentY_;
  for (const TextLine& line : command.lines) {
    command.heights.push_back(host_.LineHeight(line));
    bottom += command.heights.back();
  }
  RequireCoordinate("纵坐标", bottom);
  CurrentPage().commands.emplace_back(std::move(command));
  currentY_ = bottom;
}

void PageDocument::PutParagraph(const std::string& text) {
  RequireOpen("PutParagraph");
  AddPointText(ReadPlainText(text, SharedFont(font_)));
}

void PageDocument::PutText(const std::string& text) {
  RequireOpen("PutText");
  if (!text.empty()) AddPointText(ReadPlainText(text, SharedFont(font_)));
}

void PageDocument::PutRichText(const std::string& rtf) {
  RequireOpen("PutRichText");
  if (rtf.empty()) return;
  AddPointText(ReadRichText(rtf, font_, [this](const TextFont& font) { return SharedFont(font); }));
}

void PageDocument::DrawLine(double x1, double y1, double x2, double y2) {
  RequireOpen("DrawLine");
  for (const double coordinate : {x1, y1, x2, y2}) RequireCoordinate("线的坐标", coordinate);
  CurrentPage().commands.emplace_back(Line{x1, y1, x2, y2, penWidth_});
}

void PageDocument::DrawPicture(const PictureRef& picture, double left, double top) {
  RequireOpen("DrawPicture");
  if (!picture) return;
  const PictureSize size = NaturalSize(*picture);
  DrawPicture(picture, left, top, size.width, size.height);
}

void PageDocument::DrawPicture(const PictureRef& picture, double left, double top, double width,
                               double height) {
  RequireOpen("DrawPicture");
  for (const double number : {left, top, width, height}) RequireCoordinate("图片的位置", number);
  if (!picture) return;
  NaturalSize(*picture);  // refuses kinds of pictures that no output can draw
  CurrentPage().commands.emplace_back(PlacedPicture{picture, left, top, width, height});
}

}  // namespace td
