#include "page_document/page_document.h"

#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

#include "page_document/pictures.h"
#include "page_document/rich_text.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "text/conversions.h"

namespace td {
namespace {

constexpr double kMaxFontPoints = 2000;
constexpr double kMinPaperSide = 1;
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

bool IsPaperSide(double twips) {
  return twips >= kMinPaperSide && twips <= kMaxPaperSide;
}

// To a tenth.
std::string Millimetres(double twips) {
  return ToText(std::round(twips / kTwipsPerInch * 254) / 10);
}

// The runs of a line and those of its continuation; texts of one font become one run.
TextLine Joined(TextLine line, const TextLine& continuation) {
  for (const TextRun& run : continuation) {
    if (run.text.empty()) continue;
    if (line.back().font == run.font) {
      line.back().text += run.text;
    } else {
      line.push_back(run);
    }
  }
  return line;
}

// Moves the first lines of a text into one of their own; the others then begin below them.
PointText TakeLines(PointText& text, std::size_t count) {
  PointText taken{{}, {}, text.x, text.y, text.alignment};
  const auto end = static_cast<std::ptrdiff_t>(count);
  taken.lines.assign(text.lines.begin(), text.lines.begin() + end);
  taken.heights.assign(text.heights.begin(), text.heights.begin() + end);
  text.lines.erase(text.lines.begin(), text.lines.begin() + end);
  text.heights.erase(text.heights.begin(), text.heights.begin() + end);
  text.y = std::accumulate(taken.heights.begin(), taken.heights.end(), text.y);
  return taken;
}

PictureSize NaturalSize(const Picture& picture) {
  if (const auto* image = dynamic_cast<const ImagePicture*>(&picture)) return image->NaturalSize();
  if (const auto* drawing = dynamic_cast<const VectorPicture*>(&picture)) {
    return drawing->NaturalSize();
  }
  throw Failure(kInvalidPicture, "无法绘制这种图片");
}

}  // namespace

PageDocument::PageDocument(DocumentHost& host) : host_(host) {}

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

double PageDocument::CurrentX() {
  if (!openLine_) return currentX_;
  const PointText& open = OpenLine();
  if (open.alignment == TextAlignment::kRight) return open.x;
  const double width = host_.LineWidth(open.lines.front());
  return open.x + (open.alignment == TextAlignment::kCentre ? width / 2 : width);
}
void PageDocument::PutCurrentX(double x) {
  PutCoordinate(currentX_, "横坐标", x);
  openLine_.reset();
}
double PageDocument::CurrentY() {
  return openLine_ ? currentY_ + OpenLine().heights.front() : currentY_;
}
void PageDocument::PutCurrentY(double y) {
  PutCoordinate(currentY_, "纵坐标", y);
  openLine_.reset();
}

// Asks the host for what of the sheet nobody has written.
void PageDocument::CompleteSheet() {
  if (paperSize_ && paperWidth_ && paperHeight_) return;
  std::optional<PaperExtent> own = host_.DefaultSheet();
  if (own && !(IsPaperSide(own->width) && IsPaperSide(own->height))) own.reset();
  const std::int32_t code = own ? PaperCodeOf(*own) : kPaperA4;
  const PaperExtent sheet = StandardPaper(code).value_or(own.value_or(PaperExtent()));
  if (!paperSize_) paperSize_ = code;
  if (!paperWidth_) paperWidth_ = static_cast<float>(sheet.width);
  if (!paperHeight_) paperHeight_ = static_cast<float>(sheet.height);
}

std::int32_t PageDocument::PaperSize() {
  CompleteSheet();
  return *paperSize_;
}
float PageDocument::PaperWidth() {
  CompleteSheet();
  return *paperWidth_;
}
float PageDocument::PaperHeight() {
  CompleteSheet();
  return *paperHeight_;
}

void PageDocument::PutPaperSize(std::int32_t code) {
  if (code == kKeepPaper) return;
  paperSize_ = code;
  if (const std::optional<PaperExtent> paper = StandardPaper(code)) {
    paperWidth_ = static_cast<float>(paper->width);
    paperHeight_ = static_cast<float>(paper->height);
  } else if (code != kUserDefinedPaper) {
    host_.Complain("不认识纸张编号 " + std::to_string(code) + "，沿用现有的纸张：" +
                   Millimetres(PaperWidth()) + " × " + Millimetres(PaperHeight()) + " 毫米。");
  }
}

void PageDocument::PutPaperSide(std::optional<float>& side, float twips) {
  RequireInRange("纸张尺寸", twips, kMinPaperSide, kMaxPaperSide);
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

int PageDocument::DeviceCount() {
  deviceNames_ = host_.Devices();
  return static_cast<int>(deviceNames_.size());
}

std::string PageDocument::DeviceName(int index) {
  if (deviceNames_.empty()) deviceNames_ = host_.Devices();
  if (index < 0 || index >= static_cast<int>(deviceNames_.size())) {
    throw Failure(kInvalidCall, "没有序号为 " + std::to_string(index) + " 的打印机");
  }
  return deviceNames_[static_cast<std::size_t>(index)];
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
      document.LeaveOverlay();  // a handler that failed may have left a page open
    }
  } const scope{*this};
  firing_ = event;
  handler();
}

void PageDocument::BeginPage() {
  EndOpenLine();
  if (!pages_.empty()) pages_.back().commands.ShrinkToFit();
  CompleteSheet();
  Page page{*paperWidth_, *paperHeight_, {}, *paperSize_, orientation_ == kLandscape};
  if (page.landscape) std::swap(page.width, page.height);
  pages_.push_back(std::move(page));
}

void PageDocument::StartDoc() {
  RequireOutsideEvents("StartDoc");
  EndOpenLine();
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
  pages_.back().commands.ShrinkToFit();
  state_ = State::kClosed;
  previewPage_ = 1;
  host_.PreviewChanged(*this);
  if (!exportFile_.empty()) host_.Export(*this, exportFile_, exportFormat_);
}

void PageDocument::ClearDoc() {
  EndOpenLine();
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
  EndOpenLine();
  overlayPage_ = page;
}

void PageDocument::EndOverlay() {
  if (overlayPage_ == 0) throw Failure(kInvalidCall, "没有正在叠加的页，不能调用 EndOverlay");
  LeaveOverlay();
}

void PageDocument::LeaveOverlay() {
  if (overlayPage_ == 0) return;
  EndOpenLine();
  CurrentPage().commands.ShrinkToFit();
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
  if (textAlign_ == kAlignCentre) return TextAlignment::kCentre;
  return textAlign_ == kAlignRight ? TextAlignment::kRight : TextAlignment::kLeft;
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
                           double height, const StoredFlag& wordWrap) {
  AddBoxText(text, left, top, width, height, IsSet(wordWrap));
}

void PageDocument::EndOpenLine() {
  currentY_ = CurrentY();
  openLine_.reset();
}

// Writes lines from the current point on, the first of them behind the line that is open there.
void PageDocument::WriteLines(std::vector<TextLine> lines, bool endsLastLine) {
  if (openLine_) lines.front() = Joined(OpenLine().lines.front(), lines.front());
  PointText text{std::move(lines), {}, currentX_, currentY_, Alignment()};
  double bottom = currentY_;
  for (const TextLine& line : text.lines) {
    text.heights.push_back(host_.LineHeight(line));
    bottom += text.heights.back();
  }
  RequireCoordinate("纵坐标", bottom);

  if (openLine_) {
    PointText longer = TakeLines(text, 1);
    longer.alignment = OpenLine().alignment;
    OpenLine() = std::move(longer);
    if (text.lines.empty() && !endsLastLine) return;
    openLine_.reset();
  }
  CommandList& commands = CurrentPage().commands;
  PointText ended = TakeLines(text, text.lines.size() - (endsLastLine ? 0 : 1));
  if (!ended.lines.empty()) commands.emplace_back(ended);
  currentY_ = text.y;
  if (text.lines.empty()) return;
  openLine_ = commands.AddText(text);
}

void PageDocument::PutParagraph(const std::string& text) {
  RequireOpen("PutParagraph");
  WriteLines(ReadPlainText(text, SharedFont(font_)), true);
}

void PageDocument::PutText(const std::string& text) {
  RequireOpen("PutText");
  if (text.empty()) return;
  const bool endsLine = text.back() == '\r' || text.back() == '\n';
  WriteLines(ReadPlainText(text, SharedFont(font_)), endsLine);
}

void PageDocument::PutRichText(const std::string& rtf) {
  RequireOpen("PutRichText");
  if (rtf.empty()) return;
  WriteLines(ReadRichText(rtf, font_, [this](const TextFont& font) { return SharedFont(font); }),
             true);
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
