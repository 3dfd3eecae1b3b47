// What the mouse and the keys do on a sheet.
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QToolTip>
#include <cmath>

#include "designer/sheet/sheet_view.h"
#include "designer/view/words.h"

namespace td::designer {

SheetMouse SheetView::MouseOf(const QMouseEvent& event) const {
  return {event.position(), ToSheet(event.position()), event.modifiers(), event.button()};
}

std::vector<SheetTool*> SheetView::Tools() {
  if (tool_) return {tool_.get()};
  std::vector<SheetTool*> tools;
  for (const auto& tool : usualTools_) tools.push_back(tool.get());
  return tools;
}

void SheetView::mousePressEvent(QMouseEvent* event) {
  const SheetMouse mouse = MouseOf(*event);
  if (event->button() == Qt::RightButton && !tool_) {
    const ItemId item = ItemAt(mouse.sheet);
    if (item != 0 && !workspace_.selection.Has(item)) workspace_.selection.Select({item});
    return;
  }
  if (pressed_ != nullptr) return;
  for (SheetTool* tool : Tools()) {
    if (!tool->Press(mouse)) continue;
    pressed_ = tool;
    break;
  }
}

void SheetView::mouseMoveEvent(QMouseEvent* event) {
  const SheetMouse mouse = MouseOf(*event);
  if (events_.mouseMoved) events_.mouseMoved(mouse.sheet);
  if (pressed_ != nullptr) {
    pressed_->Drag(mouse);
    return;
  }
  Qt::CursorShape cursor = Qt::ArrowCursor;
  for (const SheetTool* tool : Tools()) {
    if (const auto own = tool->CursorAt(mouse)) {
      cursor = *own;
      break;
    }
  }
  viewport()->setCursor(cursor);
}

void SheetView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || pressed_ == nullptr) return;
  std::exchange(pressed_, nullptr)->Release(MouseOf(*event));
}

void SheetView::mouseDoubleClickEvent(QMouseEvent* event) {
  const ItemId item = tool_ ? 0 : ItemAt(ToSheet(event->position()));
  if (item != 0 && events_.itemOpened) {
    events_.itemOpened(item);
  } else {
    mousePressEvent(event);
  }
}

void SheetView::leaveEvent(QEvent*) {
  if (events_.mouseMoved) events_.mouseMoved(std::nullopt);
}

void SheetView::contextMenuEvent(QContextMenuEvent* event) {
  if (!tool_ && events_.menuWanted) events_.menuWanted(event->globalPos());
}

void SheetView::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) {
    QAbstractScrollArea::wheelEvent(event);
    return;
  }
  constexpr double kStep = 1.25;  // a notch of the wheel
  const double notches = event->angleDelta().y() / 120.0;
  if (notches != 0) PutZoom(zoom_ * std::pow(kStep, notches), event->position());
  event->accept();
}

void SheetView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
      if (tool_ || workspace_.selection.Empty()) break;
      MoveByKey(*event);
      return;
    case Qt::Key_Escape:
      if (pressed_ != nullptr) {
        std::exchange(pressed_, nullptr)->Cancel();
      } else if (tool_) {
        tool_->Cancel();
      } else {
        workspace_.selection.Clear();
      }
      return;
    case Qt::Key_PageDown:
      PutPage(page_ + 1);
      return;
    case Qt::Key_PageUp:
      PutPage(page_ - 1);
      return;
    default:
      break;
  }
  QAbstractScrollArea::keyPressEvent(event);
}

// A tenth of a millimetre, with Shift a whole one. A key that is held down is one step.
void SheetView::MoveByKey(const QKeyEvent& key) {
  const double step = TwipsOf(key.modifiers().testFlag(Qt::ShiftModifier) ? 1 : 0.1);
  const double dx = key.key() == Qt::Key_Left ? -step : key.key() == Qt::Key_Right ? step : 0;
  const double dy = key.key() == Qt::Key_Up ? -step : key.key() == Qt::Key_Down ? step : 0;
  if (!key.isAutoRepeat()) keyGesture_ = workspace_.document.NewGesture();
  workspace_.document.Move(workspace_.selection.Items(), dx, dy, keyGesture_);
}

void SheetView::dragEnterEvent(QDragEnterEvent* event) {
  if (ChoiceIn(*event->mimeData())) event->acceptProposedAction();
}

// A choice of a certain band can't be dropped where it would do nothing: the palette offers only
// what works there; without one, the band under the mouse decides.
void SheetView::dragMoveEvent(QDragMoveEvent* event) {
  const auto dropped = ChoiceIn(*event->mimeData());
  if (!dropped) return;
  const ItemSite site = dropped->site.value_or(SiteAt(ToSheet(event->position())));
  event->setAccepted(dropped->choice.WorksIn(site));
}

void SheetView::dropEvent(QDropEvent* event) {
  const auto dropped = ChoiceIn(*event->mimeData());
  if (!dropped) return;
  const Point place = ToSheet(event->position());
  const ItemSite site = dropped->site.value_or(SiteAt(place));
  const Point stored = ToStored(layout_, site, {place.x, place.y - PageShift()});
  const double step = TwipsOf(0.1);
  const Point corner{std::max(std::round(stored.x / step) * step, 0.0),
                     std::max(std::round(stored.y / step) * step, 0.0)};
  const ItemId item =
      AddChoice(workspace_.document, *dropped, site, UsualPlace(dropped->choice, corner));
  workspace_.selection.Select({item});
  setFocus();
  event->acceptProposedAction();
}

// The tooltip names the item: a caption may be too small to be read.
bool SheetView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const Item* item = TheFormat().items.Find(ItemAt(ToSheet(help->pos())));
  if (item == nullptr) {
    QToolTip::hideText();
    return true;
  }
  const std::string name =
      item->FieldName().empty() ? item->row.Text("FObjectCaption") : item->FieldName();
  QString text = NameOfBand(static_cast<int>(item->Site())) + QStringLiteral(" · ") +
                 QString::fromStdString(name);
  for (const FormatFinding& finding : workspace_.findings.All()) {
    if (finding.item == item->id)
      text += QStringLiteral("\n") + QString::fromStdString(finding.wrong);
  }
  QToolTip::showText(help->globalPos(), text, viewport());
  return true;
}

}  // namespace td::designer
