#include "designer/model/format_document.h"

#include <gtest/gtest.h>

#include "designer/model/known_columns.h"
#include "designer/model/sheet_layout.h"

namespace td::designer {
namespace {

class FormatDocumentTest : public ::testing::Test {
 protected:
  ItemId AddText(const Box& place, ItemSite site = ItemSite::kHead) {
    const Item item = NewItem(document.Current(), ItemKind::kText, site, place);
    return document.Add({&item, 1}).front();
  }
  [[nodiscard]] Box PlaceOf(ItemId id) const { return document.Find(id)->Place(); }

  FormatDocument document{NewFormat(21, "test")};
};

TEST_F(FormatDocumentTest, UndoTakesBackWhatWasDoneAndRedoDoesItAgain) {
  const ItemId id = AddText({100, 200, 300, 50});
  document.Move({id}, 10, 20);
  EXPECT_EQ(PlaceOf(id), (Box{110, 220, 300, 50}));
  EXPECT_EQ(document.Undo(), ItemIds{id});
  EXPECT_EQ(PlaceOf(id), (Box{100, 200, 300, 50}));
  document.Undo();
  EXPECT_EQ(document.Find(id), nullptr);
  EXPECT_FALSE(document.CanUndo());
  EXPECT_FALSE(document.IsModified());
  document.Redo();
  document.Redo();
  EXPECT_EQ(PlaceOf(id), (Box{110, 220, 300, 50}));
  EXPECT_FALSE(document.CanRedo());
}

TEST_F(FormatDocumentTest, StepsOfOneGestureAreOneStep) {
  const ItemId id = AddText({100, 200, 300, 50});
  const std::uint64_t gesture = document.NewGesture();
  for (int i = 0; i < 5; ++i) document.Move({id}, 10, 0, gesture);
  EXPECT_EQ(PlaceOf(id).left, 150);
  document.Undo();
  EXPECT_EQ(PlaceOf(id).left, 100);
}

TEST_F(FormatDocumentTest, ADragIsMeasuredFromItsBeginning) {
  const ItemId id = AddText({100, 200, 300, 50});
  const std::uint64_t gesture = document.NewGesture();
  for (int i = 1; i <= 1000; ++i) document.DragTo({id}, i / 3.0, 0, gesture);
  EXPECT_EQ(PlaceOf(id).left, StoredTwips(100 + 1000 / 3.0));
  document.DragTo({id}, 0, 0, gesture);
  EXPECT_EQ(PlaceOf(id).left, 100);
}

TEST_F(FormatDocumentTest, WhatIsSavedIsNotModifiedUntilTheNextStep) {
  const ItemId id = AddText({100, 200, 300, 50});
  EXPECT_TRUE(document.IsModified());
  document.MarkSaved(document.Current());
  EXPECT_FALSE(document.IsModified());
  document.Undo();
  EXPECT_TRUE(document.IsModified());
  document.Redo();
  EXPECT_FALSE(document.IsModified());
  document.Undo();
  AddText({1, 1, 1, 1});
  EXPECT_TRUE(document.IsModified());
  EXPECT_EQ(document.Find(id), nullptr);
}

TEST_F(FormatDocumentTest, ListenersHearWhatAStepReaches) {
  const ItemId id = AddText({100, 200, 300, 50});
  DocumentChange heard;
  const int number = document.AddListener([&](const DocumentChange& change) { heard = change; });
  document.Move({id}, 1, 1);
  EXPECT_EQ(heard.items, ItemIds{id});
  EXPECT_FALSE(heard.itemsCameOrWent);
  document.SetFormatNumber("FRowHeight", 400);
  EXPECT_TRUE(heard.format);
  document.Remove({id});
  EXPECT_TRUE(heard.itemsCameOrWent);
  document.RemoveListener(number);
  heard = {};
  document.Undo();
  EXPECT_TRUE(heard.items.empty());
}

TEST_F(FormatDocumentTest, AlignmentGoesByTheSheetAcrossBands) {
  document.SetFormatNumber("FRowsPerPage", 5);
  document.SetFormatNumber("FRowHeight", 100);
  const ItemId head = AddText({100, 1000, 300, 50});
  const ItemId foot = AddText({500, 620, 300, 50}, ItemSite::kFoot);  // at 1020 on the sheet
  document.Align({head, foot}, Alignment::kTop);
  EXPECT_EQ(PlaceOf(head).top, 1000);
  EXPECT_EQ(PlaceOf(foot).top, 600);
}

TEST_F(FormatDocumentTest, AnItemThatChangesItsBandStaysWhereItIs) {
  document.SetFormatNumber("FRowsPerPage", 5);
  document.SetFormatNumber("FRowHeight", 100);
  const ItemId id = AddText({100, 1000, 300, 50});
  document.SetBand({id}, ItemSite::kAfterRows);
  const SheetLayout layout = LayoutOf(document.Current());
  EXPECT_EQ(PlaceOf(id).top, 600);
  EXPECT_EQ(DrawnBox(layout, *document.Find(id)).top, 1000);
}

TEST_F(FormatDocumentTest, DistributingLeavesEqualGaps) {
  const ItemIds ids = {AddText({0, 0, 100, 10}), AddText({150, 0, 50, 10}),
                       AddText({900, 0, 100, 10})};
  document.Distribute(ids, Direction::kAcross);
  EXPECT_EQ(PlaceOf(ids[1]).left, 475);
}

TEST_F(FormatDocumentTest, AColumnIsSetInTheKindThatItHolds) {
  const ItemId id = AddText({0, 0, 100, 10});
  document.Set({id}, "FLeft", std::string("100"));
  document.SetNumber({id}, "FLeft", 200.5);
  EXPECT_EQ(document.Find(id)->row.Get("FLeft"), Value(std::string("200.5")));
}

TEST_F(FormatDocumentTest, ForwardPassesTheNextItemOfTheSameBand) {
  const ItemId a = AddText({0, 0, 1, 1});
  const ItemId row = AddText({0, 0, 1, 1}, ItemSite::kRow);
  const ItemId b = AddText({0, 0, 1, 1});
  document.Reorder({a}, Order::kForward);
  ItemIds order;
  for (const Item& item : document.Current().items) order.push_back(item.id);
  EXPECT_EQ(order, (ItemIds{row, b, a}));
  document.Reorder({a}, Order::kToBack);
  document.Undo();
  document.Undo();
  order.clear();
  for (const Item& item : document.Current().items) order.push_back(item.id);
  EXPECT_EQ(order, (ItemIds{a, row, b}));
}

}  // namespace
}  // namespace td::designer
