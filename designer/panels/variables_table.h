// The variables of the bill type as a table.
#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "designer/view/workspace.h"

namespace td::designer {

class VariablesTable : public QAbstractTableModel {
 public:
  enum Column { kCaption, kName, kUses, kColumnCount };

  explicit VariablesTable(Workspace& workspace, QObject* parent = nullptr);
  ~VariablesTable() override;

  // Called with what was typed into a cell; true if it was taken.
  std::function<bool(std::size_t variable, Column column, const QString& text)> changed;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  // A variable that is dragged to the sheet.
  [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;

 private:
  void DocumentChanged(const DocumentChange& change);

  Workspace& workspace_;
  int rows_;  // as the views know it
  int listener_;
};

}  // namespace td::designer
