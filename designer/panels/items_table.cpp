#include "designer/panels/items_table.h"

#include <QGuiApplication>
#include <QPalette>
#include <utility>

#include "designer/model/sheet_layout.h"
#include "designer/panels/item_words.h"
#include "designer/view/words.h"

namespace td::designer {

ItemsTable::ItemsTable(Workspace& workspace, QObject* parent)
    : QAbstractTableModel(parent), workspace_(workspace) {
  listener_ = workspace.document.AddListener(
      [this](const DocumentChange& change) { DocumentChanged(change); });
  ShowAll();
}

ItemsTable::~ItemsTable() {
  workspace_.document.RemoveListener(listener_);
}

ItemsTable::Shown ItemsTable::ShownOf(const Item& item) const {
  return {.name = NameOfItem(item),
          .band = NameOfBand(static_cast<int>(item.Site())),
          .kind = NameOfKind(ChoiceOf(workspace_.document.Current(), item).kind),
          .isDrawn = IsDrawn(item)};
}

void ItemsTable::ShowAll() {
  beginResetModel();
  shown_.clear();
  for (const Item& item : workspace_.document.Current().items) shown_.push_back(ShownOf(item));
  endResetModel();
}

void ItemsTable::ShowRow(int row) {
  const auto place = static_cast<std::size_t>(row);
  Shown shown = ShownOf(workspace_.document.Current().items[place]);
  if (shown == shown_[place]) return;
  shown_[place] = std::move(shown);
  emit dataChanged(index(row, 0), index(row, kColumnCount - 1));
}

void ItemsTable::DocumentChanged(const DocumentChange& change) {
  if (change.itemsCameOrWent) {
    ShowAll();
  } else if (change.variables) {
    for (int row = 0; row < rowCount(); ++row) ShowRow(row);
  } else {
    for (const ItemId id : change.items) {
      if (const int row = RowOf(id); row >= 0) ShowRow(row);
    }
  }
}

ItemId ItemsTable::IdAt(int row) const {
  return workspace_.document.Current().items[static_cast<std::size_t>(row)].id;
}

int ItemsTable::RowOf(ItemId id) const {
  const auto index = workspace_.document.Current().items.IndexOf(id);
  return index ? static_cast<int>(*index) : -1;
}

int ItemsTable::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int ItemsTable::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

QVariant ItemsTable::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  if (!index.isValid() || row >= shown_.size()) return {};
  const Shown& shown = shown_[row];
  if (role == Qt::DisplayRole) {
    switch (index.column()) {
      case kNumber:
        return index.row() + 1;
      case kName:
        return shown.name;
      case kBand:
        return shown.band;
      default:
        return shown.kind;
    }
  }
  if (role == Qt::ForegroundRole && !shown.isDrawn) {
    return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
  }
  if (role == Qt::ToolTipRole) {
    return shown.isDrawn ? shown.name : Say("This item is not printed.");
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
