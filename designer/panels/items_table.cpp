#include "designer/panels/items_table.h"

#include <QGuiApplication>
#include <QPalette>

#include "designer/model/sheet_layout.h"
#include "designer/panels/item_words.h"
#include "designer/view/words.h"

namespace td::designer {

ItemsTable::ItemsTable(Workspace& workspace, QObject* parent)
    : QAbstractTableModel(parent), workspace_(workspace) {
  listener_ = workspace.document.AddListener(
      [this](const DocumentChange& change) { DocumentChanged(change); });
}

ItemsTable::~ItemsTable() {
  workspace_.document.RemoveListener(listener_);
}

void ItemsTable::DocumentChanged(const DocumentChange& change) {
  if (change.itemsCameOrWent) {
    beginResetModel();
    endResetModel();
    return;
  }
  for (const ItemId id : change.items) {
    const int row = RowOf(id);
    if (row >= 0) emit dataChanged(index(row, 0), index(row, kColumnCount - 1));
  }
  if (change.variables) emit dataChanged(index(0, kKind), index(rowCount() - 1, kKind));
}

ItemId ItemsTable::IdAt(int row) const {
  return workspace_.document.Current().items[static_cast<std::size_t>(row)].id;
}

int ItemsTable::RowOf(ItemId id) const {
  const auto index = workspace_.document.Current().items.IndexOf(id);
  return index ? static_cast<int>(*index) : -1;
}

int ItemsTable::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(workspace_.document.Current().items.Size());
}

int ItemsTable::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

QVariant ItemsTable::data(const QModelIndex& index, int role) const {
  const Format& format = workspace_.document.Current();
  const auto row = static_cast<std::size_t>(index.row());
  if (!index.isValid() || row >= format.items.Size()) return {};
  const Item& item = format.items[row];
  if (role == Qt::DisplayRole) {
    switch (index.column()) {
      case kNumber:
        return index.row() + 1;
      case kName:
        return NameOfItem(item);
      case kBand:
        return NameOfBand(static_cast<int>(item.Site()));
      default:
        return NameOfKind(ChoiceOf(format, item).kind);
    }
  }
  const bool isDrawn = IsDrawn(item);
  if (role == Qt::ForegroundRole && !isDrawn) {
    return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
  }
  if (role == Qt::ToolTipRole) {
    return isDrawn ? NameOfItem(item) : Say("This item is not printed.");
  }
  return {};
}

QVariant ItemsTable::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  switch (section) {
    case kNumber:
      return Say("No.");
    case kName:
      return Say("Item");
    case kBand:
      return Say("Band");
    default:
      return Say("Kind");
  }
}

}  // namespace td::designer
