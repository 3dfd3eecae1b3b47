#include "designer/panels/variables_table.h"

#include "designer/panels/item_words.h"
#include "designer/view/words.h"

namespace td::designer {

VariablesTable::VariablesTable(Workspace& workspace, QObject* parent)
    : QAbstractTableModel(parent),
      workspace_(workspace),
      rows_(static_cast<int>(workspace.document.Current().variables.size())) {
  listener_ = workspace.document.AddListener(
      [this](const DocumentChange& change) { DocumentChanged(change); });
}

VariablesTable::~VariablesTable() {
  workspace_.document.RemoveListener(listener_);
}

void VariablesTable::DocumentChanged(const DocumentChange& change) {
  const auto rows = static_cast<int>(workspace_.document.Current().variables.size());
  if (rows != rows_) {
    beginResetModel();
    rows_ = rows;
    endResetModel();
  } else if (rows > 0 && (change.variables || !change.items.empty())) {
    emit dataChanged(index(0, 0), index(rows - 1, kColumnCount - 1));
  }
}

int VariablesTable::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int VariablesTable::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

QVariant VariablesTable::data(const QModelIndex& index, int role) const {
  const Format& format = workspace_.document.Current();
  const auto row = static_cast<std::size_t>(index.row());
  if (!index.isValid() || row >= format.variables.size()) return {};
  const Variable& variable = format.variables[row];
  if (role == Qt::TextAlignmentRole && index.column() == kUses) {
    return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::ToolTipRole) return {};
  switch (index.column()) {
    case kCaption:
      return QString::fromStdString(variable.Caption());
    case kName:
      return QString::fromStdString(variable.Name());
    default:
      return role == Qt::ToolTipRole ? QVariant(Say("Items of this format that show it"))
                                     : QVariant(UsesOf(format, variable.Caption()));
  }
}

bool VariablesTable::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !changed) return false;
  return changed(static_cast<std::size_t>(index.row()), static_cast<Column>(index.column()),
                 value.toString());
}

QVariant VariablesTable::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole && section == kUses) {
    return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole) return {};
  switch (section) {
    case kCaption:
      return Say("Caption");
    case kName:
      return Say("Column or field");
    default:
      return Say("Items");
  }
}

Qt::ItemFlags VariablesTable::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemIsDragEnabled;
  if (index.isValid() && index.column() != kUses) flags |= Qt::ItemIsEditable;
  return flags;
}

QMimeData* VariablesTable::mimeData(const QModelIndexList& indexes) const {
  if (indexes.isEmpty()) return nullptr;
  const Format& format = workspace_.document.Current();
  const Variable& variable = format.variables[static_cast<std::size_t>(indexes.front().row())];
  return MimeOf(ChoiceOfVariable(variable.Caption(), variable.Name())).release();
}

}  // namespace td::designer
