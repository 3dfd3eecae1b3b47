#include "designer/sheet/item_tool.h"

#include <QApplication>
#include <algorithm>
#include <cmath>

#include "designer/model/hit_testing.h"
#include "designer/sheet/sheet_painter.h"

namespace td::designer {
namespace {

constexpr double kSnapReach = 6;  // pixels
constexpr double kStep = kTwipsPerMillimetre / 10;

double Rounded(double twips) {
  return std::round(twips / kStep) * kStep;
}

const Handle* HandleAt(const std::vector<Handle>& handles, QPointF at) {
  const auto found = std::ranges::find_if(handles, [at](const Handle& handle) {
    const QPointF distance = handle.at - at;
    return std::max(std::abs(distance.x()), std::abs(distance.y())) <= kHandleSize / 2 + 2;
  });
  return found == handles.end() ? nullptr : &*found;
}

Qt::CursorShape CursorOf(const DraggedEdges& edges) {
  const bool across = edges.left || edges.right;
  const bool down = edges.top || edges.bottom;
  if (across && down) {
    return edges.left == edges.top ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
  }
  return across ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

Box WithEdgesMoved(Box box, const DraggedEdges& edges, double dx, double dy) {
  if (edges.left) {
    dx = std::min(dx, box.width);
    box.left += dx;
    box.width -= dx;
  } else if (edges.right) {
    box.width = std::max(box.width + dx, 0.0);
  }
  if (edges.top) {
    dy = std::min(dy, box.height);
    box.top += dy;
    box.height -= dy;
  } else if (edges.bottom) {
    box.height = std::max(box.height + dy, 0.0);
  }
  return box;
}

}  // namespace

SnapOptions ItemTool::Snapping(const SheetMouse& mouse) const {
  const SheetOptions& options = view_.Options();
  if (!options.snaps || mouse.modifiers.testFlag(Qt::AltModifier)) return {};
  return {.tolerance = kSnapReach / view_.PixelsPerTwip(),
          .grid = options.showsGrid ? options.grid : 0};
}

bool ItemTool::Press(const SheetMouse& mouse) {
  if (mouse.button != Qt::LeftButton) return false;
  Selection& selection = view_.TheWorkspace().selection;
  start_ = now_ = mouse;
  snapped_ = {};
  const bool isWithControl = mouse.modifiers.testFlag(Qt::ControlModifier);
  const auto handles = HandlesOf(view_);
  if (const Handle* handle = HandleAt(handles, mouse.at); handle != nullptr && !isWithControl) {
    edges_ = handle->edges;
    box_ = *SelectedBox(view_);
    placed_.reset();
    if (selection.Items().size() == 1) {
      placed_ = view_.TheFormat().items.Find(selection.Items().front())->Place();
    }
    lines_ = view_.LinesWithout(selection.Items());
    gesture_ = view_.TheWorkspace().document.NewGesture();
    state_ = State::kResizing;
    return true;
  }
  pressedItem_ = view_.ItemAt(mouse.sheet);
  wasSelected_ = pressedItem_ != 0 && selection.Has(pressedItem_);
  if (pressedItem_ == 0) {
    if (!isWithControl) selection.Clear();
    state_ = State::kCatching;
    return true;
  }
  if (!wasSelected_) {
    if (isWithControl) {
      selection.Add({pressedItem_});
    } else {
      selection.Select({pressedItem_});
    }
  }
  state_ = State::kPressed;
  return true;
}

void ItemTool::BeginMoving() {
  const ItemIds& items = view_.TheWorkspace().selection.Items();
  const auto box = SelectedBox(view_);
  if (!box) return;
  box_ = *box;
  lines_ = view_.LinesWithout(items);
  gesture_ = view_.TheWorkspace().document.NewGesture();
  view_.LiftItems(items);
  state_ = State::kMoving;
}

void ItemTool::Drag(const SheetMouse& mouse) {
  now_ = mouse;
  const bool isFar =
      2 * (mouse.at - start_.at).manhattanLength() >= QApplication::startDragDistance();
  if (state_ == State::kPressed && isFar) BeginMoving();
  if (state_ == State::kMoving) MoveTo(mouse);
  if (state_ == State::kResizing) ResizeTo(mouse);
  view_.viewport()->update();
}

// With Shift along one direction. What draws the items to a line decides over the tenth of a
// millimetre to which a drag is rounded otherwise.
void ItemTool::MoveTo(const SheetMouse& mouse) {
  double dx = mouse.sheet.x - start_.sheet.x;
  double dy = mouse.sheet.y - start_.sheet.y;
  if (mouse.modifiers.testFlag(Qt::ShiftModifier)) {
    (std::abs(dx) < std::abs(dy) ? dx : dy) = 0;
  }
  dx = Rounded(dx);
  dy = Rounded(dy);
  snapped_ = SnapMoved(box_.MovedBy(dx, dy), lines_, Snapping(mouse));
  dx += snapped_.dx;
  dy += snapped_.dy;
  Workspace& workspace = view_.TheWorkspace();
  view_.MoveLifted(dx, dy);
  workspace.document.DragTo(workspace.selection.Items(), dx, dy, gesture_);
}

void ItemTool::ResizeTo(const SheetMouse& mouse) {
  const double dx = Rounded(mouse.sheet.x - start_.sheet.x);
  const double dy = Rounded(mouse.sheet.y - start_.sheet.y);
  const Box wanted = WithEdgesMoved(box_, edges_, dx, dy);
  snapped_ = SnapResized(wanted, edges_, lines_, Snapping(mouse));
  Workspace& workspace = view_.TheWorkspace();
  const double x = dx + snapped_.dx;
  const double y = dy + snapped_.dy;
  if (placed_) {
    workspace.document.Place(workspace.selection.Items().front(),
                             WithEdgesMoved(*placed_, edges_, x, y), gesture_);
    return;
  }
  // From where the drag began: what was resized on the way is taken back first.
  if (!first_) first_ = BoxAround(view_.Layout(), view_.TheFormat(), workspace.selection.Items());
  const Box from = resized_.value_or(*first_);
  const Box to = WithEdgesMoved(*first_, edges_, x, y);
  if (to.width <= 0 || to.height <= 0) return;
  workspace.document.Resize(workspace.selection.Items(), from, to, gesture_);
  resized_ = to;
}

Box ItemTool::CaughtArea() const {
  const auto [left, right] = std::minmax(start_.sheet.x, now_.sheet.x);
  const auto [top, bottom] = std::minmax(start_.sheet.y, now_.sheet.y);
  return {left, top, right - left, bottom - top};
}

void ItemTool::Release(const SheetMouse& mouse) {
  now_ = mouse;
  Selection& selection = view_.TheWorkspace().selection;
  const bool isWithControl = mouse.modifiers.testFlag(Qt::ControlModifier);
  switch (std::exchange(state_, State::kIdle)) {
    case State::kPressed:
      if (isWithControl && wasSelected_) selection.Toggle(pressedItem_);
      if (!isWithControl && wasSelected_) selection.Select({pressedItem_});
      break;
    case State::kMoving:
      view_.DropLifted();
      break;
    case State::kCatching:
      // From right to left it is enough that an item is touched.
      selection.Add(view_.ItemsIn(CaughtArea(), now_.at.x() < start_.at.x()));
      break;
    case State::kResizing:
    case State::kIdle:
      break;
  }
  first_.reset();
  resized_.reset();
  snapped_ = {};
  view_.viewport()->update();
}

void ItemTool::Cancel() {
  Workspace& workspace = view_.TheWorkspace();
  const ItemIds items = workspace.selection.Items();
  switch (std::exchange(state_, State::kIdle)) {
    case State::kMoving:
      workspace.document.DragTo(items, 0, 0, gesture_);
      view_.DropLifted();
      break;
    case State::kResizing:
      if (placed_) {
        workspace.document.Place(items.front(), *placed_, gesture_);
      } else if (resized_) {
        workspace.document.Resize(items, *resized_, *first_, gesture_);
      }
      break;
    default:
      break;
  }
  first_.reset();
  resized_.reset();
  snapped_ = {};
  view_.viewport()->update();
}

std::optional<Qt::CursorShape> ItemTool::CursorAt(const SheetMouse& mouse) const {
  const auto handles = HandlesOf(view_);
  if (const Handle* handle = HandleAt(handles, mouse.at)) return CursorOf(handle->edges);
  if (view_.ItemAt(mouse.sheet) != 0) return Qt::SizeAllCursor;
  return std::nullopt;
}

void ItemTool::Paint(QPainter& painter) const {
  if (state_ == State::kCatching) {
    painter.setPen(QPen(QColor(0, 95, 184), 1));
    painter.setBrush(QColor(0, 95, 184, 30));
    painter.drawRect(QRectF(start_.at, now_.at).normalized());
  }
  painter.setPen(QPen(QColor(220, 0, 120), 0, Qt::DashLine));
  if (snapped_.atX) {
    const double x = view_.ToView(Point{*snapped_.atX, 0}).x();
    painter.drawLine(QPointF(x, 0), QPointF(x, view_.viewport()->height()));
  }
  if (snapped_.atY) {
    const double y = view_.ToView(Point{0, *snapped_.atY}).y();
    painter.drawLine(QPointF(0, y), QPointF(view_.viewport()->width(), y));
  }
}

}  // namespace td::designer
