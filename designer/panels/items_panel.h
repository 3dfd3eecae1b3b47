// The list of all items, in the order in which they are drawn.
#pragma once

#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QWidget>
#include <vector>

#include "designer/panels/items_table.h"

namespace td::designer {

// What is selected here is selected on the sheet, and the other way round. Enter or a double click
// scrolls the sheet to the item.
class ItemsPanel : public QWidget {
 public:
  explicit ItemsPanel(Workspace& workspace, QWidget* parent = nullptr);
  ~ItemsPanel() override;

 private:
  void LayOut();
  QLayout* OrderButtons();
  void TakeSelection();  // from the list
  void ShowSelection();  // in the list
  [[nodiscard]] ItemId IdAt(const QModelIndex& index) const;

  Workspace& workspace_;
  ItemsTable* table_;
  QSortFilterProxyModel* filtered_;
  QLineEdit* filter_;
  QTreeView* view_;
  std::vector<QWidget*> buttons_;
  bool isShowing_ = false;
  int selectionListener_;
};

}  // namespace td::designer
