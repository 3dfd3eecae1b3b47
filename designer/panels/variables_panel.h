// The variables of the bill type, and the columns of the print data that can become some.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <QWidget>
#include <string>

#include "designer/panels/data_columns.h"
#include "designer/panels/variables_table.h"

namespace td::designer {

class VariablesPanel : public QWidget {
 public:
  explicit VariablesPanel(Workspace& workspace, QWidget* parent = nullptr);
  ~VariablesPanel() override;

 private:
  QWidget* MakeTable();
  QWidget* MakeColumns();
  QPushButton* MakeButton(const char* name, const QString& text, void (VariablesPanel::*clicked)());
  void Refresh();

  void AddNew();
  void RemoveCurrent();
  void AddColumns();
  bool Change(std::size_t variable, VariablesTable::Column column, const QString& text);
  void Rename(const std::string& from, const QString& to);
  [[nodiscard]] bool Ask(const QString& question, const QString& doIt);
  [[nodiscard]] std::optional<std::size_t> CurrentVariable() const;

  Workspace& workspace_;
  QLabel* sharing_;
  QLabel* refusal_;
  VariablesTable* table_;
  QTreeView* view_;
  DataColumns* columns_ = nullptr;
  QPushButton* remove_ = nullptr;
  QPushButton* addColumns_ = nullptr;
  int listener_;
};

}  // namespace td::designer
