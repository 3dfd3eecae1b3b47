// The items of a format as a table, in the order in which they are drawn.
#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <vector>

#include "designer/view/workspace.h"

namespace td::designer {

class ItemsTable : public QAbstractTableModel {
 public:
  enum Column { kNumber, kName, kBand, kKind, kColumnCount };

  explicit ItemsTable(Workspace& workspace, QObject* parent = nullptr);
  ~ItemsTable() override;

  [[nodiscard]] ItemId IdAt(int row) const;
  // -1 for an item that the format doesn't have.
  [[nodiscard]] int RowOf(ItemId id) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  // What a row shows: a drag changes many items at each step, but seldom this.
  struct Shown {
    QString name;
    QString band;
    QString kind;
    bool isDrawn = true;
    bool operator==(const Shown&) const = default;
  };

  [[nodiscard]] Shown ShownOf(const Item& item) const;
  void ShowAll();
  void ShowRow(int row);
  void DocumentChanged(const DocumentChange& change);

  Workspace& workspace_;
  std::vector<Shown> shown_;  // of each item, in their order
  int listener_;
};

}  // namespace td::designer
