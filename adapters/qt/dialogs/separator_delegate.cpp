#include "qt/dialogs/separator_delegate.h"

#include <QApplication>
#include <QPainter>

#include "dialogs/field_texts.h"

namespace td {
void SeparatorDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
  if (!IsSeparator(index.data().toString().toStdString())) {
    QStyledItemDelegate::paint(painter, option, index);
    return;
  }
  QStyleOptionViewItem entry = option;
  initStyleOption(&entry, index);
  entry.text.clear();
  const QStyle& style = entry.widget != nullptr ? *entry.widget->style() : *QApplication::style();
  style.drawControl(QStyle::CE_ItemViewItem, &entry, painter, entry.widget);

  constexpr int kInset = 4;
  const QRect& row = option.rect;
  const bool isChosen = option.state.testFlag(QStyle::State_Selected);
  painter->save();
  painter->setPen(option.palette.color(isChosen ? QPalette::HighlightedText : QPalette::Dark));
  painter->drawLine(row.left() + kInset, row.center().y(), row.right() - kInset, row.center().y());
  painter->restore();
}

}  // namespace td
