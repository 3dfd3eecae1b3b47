#include "page_document/page_document.h"

#include <cmath>
#include <limits>
#include <utility>

#include "page_document/number_bounds.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "text/conversions.h"

namespace td {
namespace {

constexpr double kMaxFontPoints = 2000;
constexpr double kMinPaperSide = 1;
constexpr double kMaxPaperSide = 288'000;  // 200 inches, the longest side that a PDF page can have

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
  host_.PageCompleted();
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

}  // namespace td
