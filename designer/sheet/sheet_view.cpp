#include "designer/sheet/sheet_view.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <utility>

#include "designer/model/hit_testing.h"
#include "designer/print/sheet_boxes.h"
#include "designer/sheet/band_tool.h"
#include "designer/sheet/guide_tool.h"
#include "designer/sheet/item_tool.h"
#include "designer/sheet/sheet_painter.h"
#include "designer/view/words.h"

namespace td::designer {
namespace {

constexpr int kLineStep = 40;

QPixmap EmptyPixmap(const QSizeF& size, double ratio) {
  QPixmap pixmap((size * ratio).toSize());
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

}  // namespace

SheetView::SheetView(Workspace& workspace, SheetPrinter& printer, SheetEvents events,
                     QWidget* parent)
    : QAbstractScrollArea(parent),
      workspace_(workspace),
      printer_(printer),
      events_(std::move(events)) {
  options_.grid = TwipsOf(1);
  setAccessibleName(Say("Sheet"));
  setObjectName("sheet");
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  setAcceptDrops(true);
  horizontalScrollBar()->setSingleStep(kLineStep);
  verticalScrollBar()->setSingleStep(kLineStep);
  viewport()->setMouseTracking(true);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  usualTools_.push_back(std::make_unique<BandTool>(*this));
  usualTools_.push_back(std::make_unique<GuideTool>(*this));
  usualTools_.push_back(std::make_unique<ItemTool>(*this));
  runTimer_.setSingleShot(true);
  QObject::connect(&runTimer_, &QTimer::timeout, this, [this] { Run(); });
  documentListener_ = workspace_.document.AddListener(
      [this](const DocumentChange& change) { DocumentChanged(change); });
  selectionListener_ = workspace_.selection.AddListener([this] { viewport()->update(); });
  findingsListener_ = workspace_.findings.AddListener([this] { viewport()->update(); });
}

SheetView::~SheetView() {
  workspace_.document.RemoveListener(documentListener_);
  workspace_.selection.RemoveListener(selectionListener_);
  workspace_.findings.RemoveListener(findingsListener_);
}

void SheetView::PutOptions(const SheetOptions& options) {
  const bool needsRun =
      options.contents != options_.contents || options.onlyValues != options_.onlyValues;
  options_ = options;
  if (needsRun) {
    isStale_ = true;
    page_ = 0;
    Run();
  }
  Renew();
}

void SheetView::ShowAids() {
  Renew();
}

void SheetView::AidsWereChanged() {
  Renew();
  if (events_.aidsChanged) events_.aidsChanged();
}

// While items are dragged, they lie above the others as they were drawn last: a run for each move
// of the mouse would be late.
void SheetView::DocumentChanged(const DocumentChange& change) {
  if (change.itemsCameOrWent) workspace_.selection.KeepThoseOf(TheFormat());
  layout_ = LayoutOf(TheFormat());
  isStale_ = true;
  if (lifted_.empty()) runTimer_.start(0);
  viewport()->update();
}

void SheetView::Run() {
  runTimer_.stop();
  if (!isStale_) return;
  isStale_ = false;
  layout_ = LayoutOf(TheFormat());
  picture_ = printer_.Print(TheFormat(), options_.contents, options_.onlyValues);
  page_ = std::clamp(page_, 0, std::max(static_cast<int>(picture_.pages.size()) - 1, 0));
  FindBoxes();
  FitScrollBars();
  Renew();
  if (events_.pictureChanged) events_.pictureChanged();
}

// Not while items are lifted: see DocumentChanged.
void SheetView::BeFresh() {
  if (lifted_.empty()) Run();
}

const SheetPicture& SheetView::Picture() {
  BeFresh();
  return picture_;
}

const SheetPage& SheetView::Page() {
  static const SheetPage kNone{};
  const SheetPicture& picture = Picture();
  return picture.pages.empty() ? kNone : picture.pages[static_cast<std::size_t>(page_)];
}

void SheetView::PutPage(int page) {
  page = std::clamp(page, 0, std::max(static_cast<int>(Picture().pages.size()) - 1, 0));
  if (std::exchange(page_, page) == page) return;
  FindBoxes();
  FitScrollBars();
  Renew();
  if (events_.pictureChanged) events_.pictureChanged();
}

void SheetView::FindBoxes() {
  boxes_.clear();
  if (picture_.pages.empty()) return;
  boxes_ =
      BoxesOn(picture_, static_cast<std::size_t>(page_), TheFormat(), layout_, options_.onlyValues);
}

double SheetView::PageShift() const {
  return page_ == 0 ? 0 : layout_.header;
}

std::optional<designer::Box> SheetView::BoxOf(ItemId item) {
  BeFresh();
  const auto found = boxes_.find(item);
  if (found == boxes_.end()) return std::nullopt;
  return lifted_.contains(item) ? found->second.MovedBy(liftedBy_.x, liftedBy_.y) : found->second;
}

ItemId SheetView::ItemAt(Point place) {
  constexpr double kReach = 3;  // pixels
  BeFresh();
  const auto items = td::designer::ItemsAt(
      layout_, TheFormat(), place,
      {.tolerance = kReach / PixelsPerTwip(),
       .onlyValues = options_.onlyValues,
       .inAllRows = true,
       .boxOfItem = [this](const Item& item) { return BoxOrNowhere(boxes_, item); }});
  // What is selected already can be dragged although something else lies above it.
  for (const ItemId id : items) {
    if (workspace_.selection.Has(id)) return id;
  }
  return items.empty() ? 0 : items.front();
}

ItemIds SheetView::ItemsIn(const designer::Box& area, bool touching) {
  BeFresh();
  return td::designer::ItemsIn(
      layout_, TheFormat(), area, touching,
      {.tolerance = 0,
       .onlyValues = options_.onlyValues,
       .inAllRows = false,
       .boxOfItem = [this](const Item& item) { return BoxOrNowhere(boxes_, item); }});
}

ItemSite SheetView::SiteAt(Point place) {
  const auto& items = TheFormat().items;
  const bool hasRows = std::ranges::find(items, ItemSite::kRow, &Item::Site) != items.end();
  std::optional<ItemSite> nearest;
  double least = 0;
  for (const BandStrip& strip : StripsOf(*this)) {
    const double distance = std::max({strip.box.top - place.y, place.y - strip.box.Bottom(), 0.0});
    if (strip.site == ItemSite::kRow && distance == 0 && hasRows) return ItemSite::kRow;
    if (strip.site == ItemSite::kRow || (nearest && distance >= least)) continue;
    nearest = strip.site;
    least = distance;
  }
  return nearest.value_or(ItemSite::kHead);
}

SnapLines SheetView::LinesWithout(const ItemIds& items) {
  SnapLines lines = aids_.guides;
  const SheetPage& page = Page();
  lines.x.insert(lines.x.end(), {0, page.width / 2, page.width});
  lines.y.insert(lines.y.end(), {0, page.height / 2, page.height});
  for (const auto& [id, box] : boxes_) {
    if (std::ranges::find(items, id) != items.end()) continue;
    lines.x.insert(lines.x.end(), {box.left, box.CentreX(), box.Right()});
    lines.y.insert(lines.y.end(), {box.top, box.CentreY(), box.Bottom()});
  }
  return lines;
}

void SheetView::LiftItems(const ItemIds& items) {
  BeFresh();
  lifted_ = {items.begin(), items.end()};
  liftedBy_ = {};
  liftedPicture_.reset();
  Renew();
}

void SheetView::MoveLifted(double dx, double dy) {
  liftedBy_ = {dx, dy};
  viewport()->update();
}

void SheetView::DropLifted() {
  lifted_.clear();
  liftedBy_ = {};
  liftedPicture_.reset();
  Run();
  Renew();
}

void SheetView::PutTool(std::unique_ptr<SheetTool> tool) {
  if (pressed_ != nullptr) pressed_->Cancel();
  pressed_ = nullptr;
  tool_ = std::move(tool);
  viewport()->setCursor(Qt::ArrowCursor);
  viewport()->update();
}

void SheetView::DragGuide(Qt::Orientation orientation, const QPoint& global) {
  auto* guides = static_cast<GuideTool*>(usualTools_[1].get());
  if (pressed_ != guides) guides->Begin(orientation);
  pressed_ = guides;
  const QPointF at = viewport()->mapFromGlobal(global);
  guides->Drag({at, ToSheet(at), Qt::NoModifier, Qt::LeftButton});
}

void SheetView::DropGuide(const QPoint& global) {
  const QPointF at = viewport()->mapFromGlobal(global);
  if (pressed_ == usualTools_[1].get()) {
    pressed_->Release({at, ToSheet(at), Qt::NoModifier, Qt::LeftButton});
  }
  pressed_ = nullptr;
}

void SheetView::Renew() {
  still_.reset();
  viewport()->update();
  if (events_.viewChanged) events_.viewChanged();
}

// Drawn at a fraction of its size, a picture would lose its thin lines.
const QImage& SheetView::ScanAt(double pixelsPerPixel) {
  const QImage& whole = aids_.scan.image;
  if (scanSizes_.empty() || scanSizes_.front().cacheKey() != whole.cacheKey()) scanSizes_ = {whole};
  std::size_t halvings = 0;
  for (double shown = pixelsPerPixel; shown < 0.75; shown *= 2) ++halvings;
  while (scanSizes_.size() <= halvings) {
    const QImage& last = scanSizes_.back();
    if (last.width() < 2 || last.height() < 2) return last;
    scanSizes_.push_back(last.scaled((last.size() + QSize(1, 1)) / 2, Qt::IgnoreAspectRatio,
                                     Qt::SmoothTransformation));
  }
  return scanSizes_[halvings];
}

void SheetView::resizeEvent(QResizeEvent*) {
  FitScrollBars();
  Renew();
}

void SheetView::scrollContentsBy(int, int) {
  liftedPicture_.reset();
  Renew();
}

// What is seen of the sheet and of the items beside it, and half as much again on each side: a drag
// brings in what lies there.
QRect SheetView::LiftedArea() const {
  QRectF area = SheetRect();
  for (const ItemId item : lifted_) {
    if (const auto found = boxes_.find(item); found != boxes_.end()) area |= ToView(found->second);
  }
  const QSize half = viewport()->size() / 2;
  const QRect room =
      viewport()->rect().adjusted(-half.width(), -half.height(), half.width(), half.height());
  return area.toAlignedRect() & room;
}

void SheetView::DrawLifted(QPainter& painter) {
  if (!liftedPicture_) {
    const Point by = std::exchange(liftedBy_, {});
    const QRect area = LiftedArea();
    liftedCorner_ = area.topLeft();
    liftedPicture_ = EmptyPixmap(area.size(), devicePixelRatioF());
    if (!liftedPicture_->isNull()) {
      liftedPicture_->fill(Qt::transparent);
      QPainter lifted(&*liftedPicture_);
      lifted.translate(-liftedCorner_);
      SheetPainter(*this).DrawLifted(lifted);
    }
    liftedBy_ = by;
  }
  if (liftedPicture_->isNull()) return;
  painter.drawPixmap(liftedCorner_ + QPointF(liftedBy_.x, liftedBy_.y) * PixelsPerTwip(),
                     *liftedPicture_);
}

void SheetView::paintEvent(QPaintEvent*) {
  BeFresh();
  const SheetPainter sheet(*this);
  if (!still_) {
    still_ = EmptyPixmap(viewport()->size(), devicePixelRatioF());
    QPainter painter(&*still_);
    painter.setFont(font());
    sheet.DrawStill(painter);
  }
  QPainter painter(viewport());
  painter.drawPixmap(0, 0, *still_);
  if (!lifted_.empty()) DrawLifted(painter);
  sheet.DrawMarks(painter);
  for (const SheetTool* tool : Tools()) tool->Paint(painter);
}

}  // namespace td::designer
