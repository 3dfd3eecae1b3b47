#include "designer/model/difference.h"

#include <gtest/gtest.h>

#include "designer/model/item_commands.h"

namespace td::designer {
namespace {

class DifferenceTest : public ::testing::Test {
 protected:
  DifferenceTest() {
    for (int i = 0; i < 4; ++i) {
      Item item = NewItem(first, ItemKind::kText, ItemSite::kHead, {100.0 * i, 0, 90, 20});
      item.row.Set("FObjectCaption", "text " + std::to_string(i));
      item.id = first.NewItemId();
      first.items.Append(item);
    }
    second = first;
  }
  [[nodiscard]] std::vector<std::string> Words() const {
    std::vector<std::string> words;
    for (const Difference& one : DifferencesOf(first, second)) {
      words.push_back(InWords(one, false));
    }
    return words;
  }
  using Lines = std::vector<std::string>;

  Format first = NewFormat(21, "test");
  Format second;
};

TEST_F(DifferenceTest, EqualFormatsHaveNone) {
  EXPECT_EQ(Words(), Lines());
  second.row.Set("FRowsPerPage", 10.0);
  EXPECT_EQ(Words(), Lines()) << "a number of another kind is the same number";
}

TEST_F(DifferenceTest, AColumnIsToldWithBothValues) {
  second.row.PutNumber("FRowHeight", 12.5);
  second.items.Change(1).row.Set("FObjectCaption", Null{});
  EXPECT_EQ(Words(), (Lines{"format: FRowHeight: 340.16 → 12.5 (6 → 0.22 mm)",
                            "item “text 1” (2): FObjectCaption: “text 1” → Null"}));
}

TEST_F(DifferenceTest, AMovedItemIsTheSameItem) {
  Do(second, MoveItems(second, {second.items[2].id}, 5000, 0));
  EXPECT_EQ(Words(), (Lines{"item “text 2” (3): FLeft: 200 → 5200 (3.53 → 91.72 mm)"}));
}

TEST_F(DifferenceTest, ItemsComeAndGo) {
  Do(second, RemoveItems(second, {second.items[0].id}));
  Item item = NewItem(second, ItemKind::kLine, ItemSite::kRow, {0, 0, 90, 0});
  Do(second, AddItems(second, {&item, 1}));
  EXPECT_EQ(Words(), (Lines{"item removed: “text 0” (1)", "item added: line (4)"}));
}

TEST_F(DifferenceTest, OneItemThatIsPutBehindIsOneDifference) {
  Do(second, ReorderItems(second, {second.items[0].id}, Order::kToFront));
  EXPECT_EQ(Words(), (Lines{"item in another order: “text 0” (1)"}));
}

TEST_F(DifferenceTest, TheOrderOfItemsOfTwoBandsIsNone) {
  second.items.Change(3).row.PutNumber("FSite", 3);
  first = second;
  second.items.Move(3, 0);
  EXPECT_EQ(Words(), Lines());
}

TEST_F(DifferenceTest, VariablesAreToldByTheirCaption) {
  first.variables = {NewVariable("客户", "FCustName"), NewVariable("日期", "FDate")};
  second.variables = {NewVariable("客户", "FPartner"), NewVariable("备注", "FNote")};
  EXPECT_EQ(Words(), (Lines{"variable “客户”: FVarName: “FCustName” → “FPartner”",
                            "variable removed: “日期”", "variable added: “备注”"}));
  EXPECT_EQ(InWords(DifferencesOf(first, second)[1], true), "删除变量 “日期”");
}

}  // namespace
}  // namespace td::designer
