// How the entries of a drop-down list are drawn.
#pragma once

#include <QStyledItemDelegate>

namespace td {

// Draws an entry of nothing but hyphens as a line. It is an entry all the same: it can be chosen.
class SeparatorDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace td
