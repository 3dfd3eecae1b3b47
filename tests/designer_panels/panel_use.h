// A format and what its panels share, for tests that use the panels as a person does.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <memory>
#include <string>

#include "designer/view/workspace.h"

namespace td::designer {

// Bill type 21 with the variables 客户 and 金额; one item of each kind.
class PanelUse : public testing::Test {
 protected:
  PanelUse();

  // Shows a panel in a window that has the keyboard.
  template <typename Panel>
  Panel& Open() {
    panel_ = std::make_unique<Panel>(workspace_);
    Show();
    return static_cast<Panel&>(*panel_);
  }
  void Show();

  template <typename Widget = QWidget>
  Widget& Named(const char* name) {
    auto* found = panel_->findChild<Widget*>(QString::fromUtf8(name));
    if (found == nullptr) throw std::runtime_error(std::string("no field ") + name);
    return *found;
  }

  // Puts the focus into a field, types over what it shows, and ends with Enter.
  void Type(QWidget& field, const QString& text, bool finish = true);
  static void Choose(QComboBox& list, int index);

  [[nodiscard]] FormatDocument& Document() { return workspace_.document; }
  [[nodiscard]] const Row& RowOf(ItemId id) { return Document().Find(id)->row; }
  [[nodiscard]] double Number(ItemId id, std::string_view column) {
    return RowOf(id).Number(column);
  }
  [[nodiscard]] std::string Text(ItemId id, std::string_view column) {
    return RowOf(id).Text(column);
  }
  ItemId Add(ItemKind kind, ItemSite site, const Box& place, const std::string& field = {},
             const std::string& caption = {});
  // The first row of data: FCustName 和平商店, FAmount 1234.5, FDate a date.
  void GiveData();
  int Steps();  // that can be undone; undoes and does them again

  Workspace workspace_;
  ItemId label_;    // 页眉, the text 送货单
  ItemId value_;    // 金额 in the row
  ItemId line_;     // in the row
  ItemId picture_;  // in the foot
  std::unique_ptr<QWidget> panel_;
};

}  // namespace td::designer
