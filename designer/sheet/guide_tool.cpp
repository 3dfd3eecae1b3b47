#include "designer/sheet/guide_tool.h"

#include <cmath>

namespace td::designer {
namespace {

constexpr double kReach = 3;  // pixels
constexpr double kStep = kTwipsPerMillimetre / 10;

}  // namespace

std::vector<double>& GuideTool::Guides(Qt::Orientation orientation) const {
  SnapLines& guides = view_.Aids().guides;
  return orientation == Qt::Horizontal ? guides.y : guides.x;
}

std::optional<GuideTool::Guide> GuideTool::GuideAt(QPointF place) const {
  for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
    const std::vector<double>& guides = Guides(orientation);
    for (std::size_t i = 0; i < guides.size(); ++i) {
      const QPointF at = view_.ToView(Point{guides[i], guides[i]});
      const double distance =
          orientation == Qt::Horizontal ? at.y() - place.y() : at.x() - place.x();
      if (std::abs(distance) <= kReach) return Guide{orientation, i};
    }
  }
  return std::nullopt;
}

void GuideTool::Begin(Qt::Orientation orientation) {
  std::vector<double>& guides = Guides(orientation);
  guides.push_back(-1);
  dragged_ = Guide{orientation, guides.size() - 1};
  former_.reset();
}

// A guide lies under the items: what is selected more often is reached first.
bool GuideTool::Press(const SheetMouse& mouse) {
  if (mouse.button != Qt::LeftButton || view_.ItemAt(mouse.sheet) != 0) return false;
  dragged_ = GuideAt(mouse.at);
  if (dragged_) former_ = Guides(dragged_->orientation)[dragged_->index];
  return dragged_.has_value();
}

void GuideTool::Drag(const SheetMouse& mouse) {
  if (!dragged_) return;
  const double place = dragged_->orientation == Qt::Horizontal ? mouse.sheet.y : mouse.sheet.x;
  Guides(dragged_->orientation)[dragged_->index] = std::round(place / kStep) * kStep;
  view_.viewport()->update();
}

void GuideTool::RemoveDragged() {
  std::vector<double>& guides = Guides(dragged_->orientation);
  guides.erase(guides.begin() + static_cast<std::ptrdiff_t>(dragged_->index));
}

void GuideTool::Release(const SheetMouse& mouse) {
  if (!dragged_) return;
  Drag(mouse);
  const double place = Guides(dragged_->orientation)[dragged_->index];
  const double end =
      dragged_->orientation == Qt::Horizontal ? view_.Page().height : view_.Page().width;
  if (place < 0 || place > end) RemoveDragged();
  dragged_.reset();
  view_.AidsWereChanged();
}

void GuideTool::Cancel() {
  if (!dragged_) return;
  if (former_) {
    Guides(dragged_->orientation)[dragged_->index] = *former_;
  } else {
    RemoveDragged();
  }
  dragged_.reset();
  view_.viewport()->update();
}

std::optional<Qt::CursorShape> GuideTool::CursorAt(const SheetMouse& mouse) const {
  if (view_.ItemAt(mouse.sheet) != 0) return std::nullopt;
  const auto guide = GuideAt(mouse.at);
  if (!guide) return std::nullopt;
  return guide->orientation == Qt::Horizontal ? Qt::SplitVCursor : Qt::SplitHCursor;
}

}  // namespace td::designer
