// The list of the items.
#include "designer/panels/items_panel.h"

#include <QLineEdit>
#include <QPushButton>

#include "panel_use.h"

namespace td::designer {
namespace {

class ItemsPanelTest : public PanelUse {
 protected:
  QTreeView& List() { return Named<QTreeView>("Items"); }
  [[nodiscard]] QString Cell(int row, int column) {
    return List().model()->index(row, column).data().toString();
  }
  [[nodiscard]] std::vector<int> Selected() {
    std::vector<int> rows;
    for (const QModelIndex& index : List().selectionModel()->selectedRows()) {
      rows.push_back(index.row());
    }
    return rows;
  }
  void Click(int row, Qt::KeyboardModifiers modifiers = {}) {
    const QRect place = List().visualRect(List().model()->index(row, 1));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, modifiers, place.center());
  }
};

TEST_F(ItemsPanelTest, ShowsTheItemsInTheirOrder) {
  Open<ItemsPanel>();
  ASSERT_EQ(List().model()->rowCount(), 4);
  EXPECT_EQ(Cell(0, ItemsTable::kName), "送货单");
  EXPECT_EQ(Cell(1, ItemsTable::kName), "金额");
  EXPECT_EQ(Cell(1, ItemsTable::kBand), "Row");
  EXPECT_EQ(Cell(1, ItemsTable::kKind), "Variable");
  EXPECT_EQ(Cell(2, ItemsTable::kKind), "Line");
}

TEST_F(ItemsPanelTest, SelectsInBothDirections) {
  Open<ItemsPanel>();
  Click(1);
  EXPECT_EQ(workspace_.selection.Items(), ItemIds{value_});
  Click(2, Qt::ControlModifier);
  EXPECT_EQ(workspace_.selection.Items(), (ItemIds{value_, line_}));
  workspace_.selection.Select({picture_});
  EXPECT_EQ(Selected(), std::vector<int>{3});
  workspace_.selection.Clear();
  EXPECT_TRUE(Selected().empty());
}

TEST_F(ItemsPanelTest, BringsItemsForwardAndKeepsThemSelected) {
  Open<ItemsPanel>();
  EXPECT_FALSE(Named("ToFront").isEnabled());
  Click(0);
  Named<QPushButton>("ToFront").click();
  EXPECT_EQ(Document().Current().items[3].id, label_);
  EXPECT_EQ(Selected(), std::vector<int>{3});
  EXPECT_EQ(workspace_.selection.Items(), ItemIds{label_});
  Named<QPushButton>("ToBack").click();
  EXPECT_EQ(Document().Current().items[0].id, label_);
}

TEST_F(ItemsPanelTest, EnterGoesToTheItem) {
  ItemId gone = 0;
  workspace_.goTo = [&](ItemId id) { gone = id; };
  Open<ItemsPanel>();
  List().setFocus();
  Click(2);
  QTest::keyClick(&List(), Qt::Key_Return);
  EXPECT_EQ(gone, line_);
}

TEST_F(ItemsPanelTest, AFilterHidesAndDeselectsNothingOnTheSheet) {
  Open<ItemsPanel>();
  workspace_.selection.Select({label_, line_});
  Named<QLineEdit>("ItemsFilter").setText("送货");
  EXPECT_EQ(List().model()->rowCount(), 1);
  EXPECT_EQ(workspace_.selection.Items(), (ItemIds{label_, line_}));
  Document().Set({label_}, "FObjectCaption", std::string("收据"));
  EXPECT_EQ(List().model()->rowCount(), 1);  // it is still being renamed
  EXPECT_EQ(workspace_.selection.Items(), (ItemIds{label_, line_}));
}

TEST_F(ItemsPanelTest, FollowsWhatComesAndGoes) {
  Open<ItemsPanel>();
  Document().Remove({label_});
  EXPECT_EQ(List().model()->rowCount(), 3);
  Document().Undo();
  EXPECT_EQ(List().model()->rowCount(), 4);
  Document().SetNumber({value_}, "FLeft", -1);
  EXPECT_TRUE(List().model()->index(1, 1).data(Qt::ForegroundRole).isValid());
  EXPECT_FALSE(List().model()->index(0, 1).data(Qt::ForegroundRole).isValid());
}

}  // namespace
}  // namespace td::designer
