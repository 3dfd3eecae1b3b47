// Saving through the window, on each engine.
#include <QPushButton>

#include "shown_designer.h"
#include "table_lock.h"

namespace td::designer {
namespace {

constexpr const char* kCustomer =
    "FObjectFieldName='客户' and FTDBillID=(select FTDBillID from TDBill where FSelected=1 and "
    "FTranType=21)";

class SavingOnEachEngine : public ShownDesigner, public testing::WithParamInterface<SampleEngine> {
 protected:
  SavingOnEachEngine() : ShownDesigner(SampleRows::kAll, GetParam()) {}
  void SetUp() override { Open(); }

  void MoveCustomer() {
    Selected().Select({ItemNamed("客户").id});
    Press(Qt::Key_Right, Qt::ShiftModifier);
  }
  [[nodiscard]] double Stored(const std::string& column) {
    return std::stod(Cell("select max(" + column + ") from TDBillDetail where " + kCustomer));
  }
};

TEST_P(SavingOnEachEngine, WhatWasMovedStandsInTheTables) {
  const double before = Stored("FLeft");
  const std::size_t items = Document().Current().items.Size();
  MoveCustomer();
  Trigger("save");
  EXPECT_FALSE(Window().isWindowModified());
  EXPECT_NEAR(Stored("FLeft"), before + TwipsOf(1), 0.02);
  Open();
  EXPECT_EQ(Document().Current().items.Size(), items);
  EXPECT_NEAR(ItemNamed("客户").Place().left, before + TwipsOf(1), 0.02);
}

TEST_P(SavingOnEachEngine, AFormatIsMadeCopiedRenamedAndDeleted) {
  AnswerName("新表单");
  Trigger("new");
  const Item item =
      NewItem(Document().Current(), ItemKind::kText, ItemSite::kHead, {100, 200, 300, 50});
  Document().Add({&item, 1});
  AnswerName("新表单");
  Trigger("save");
  AnswerName("副本");
  Trigger("copyFormat");
  AnswerName("另一副本");
  Trigger("rename");
  EXPECT_EQ(Cell("select count(*) from TDBill where FTranType=21 and FTDBillName in "
                 "('新表单','另一副本')"),
            "2");
  Open({21, "另一副本"});
  ASSERT_EQ(Document().Current().items.Size(), 1U);
  EXPECT_EQ(Document().Current().items[0].Place(), item.Place());
  Answer("question", "answer0");
  Trigger("deleteFormat");
  EXPECT_EQ(Cell("select count(*) from TDBill where FTDBillName='另一副本'"), "0");
}

TEST_P(SavingOnEachEngine, WhatSomebodyElseHasChangedIsAskedAbout) {
  MoveCustomer();
  RunScriptOn(GetParam(), std::string("update TDBillDetail set FTop=777 where ") + kCustomer);
  Answer("question", "cancel");
  Trigger("save");
  EXPECT_TRUE(Window().isWindowModified());
  EXPECT_EQ(Stored("FTop"), 777);
  Answer("question", "answer1");
  Trigger("save");
  EXPECT_EQ(ItemNamed("客户").Place().top, 777);
  EXPECT_FALSE(Window().isWindowModified());
}

TEST_P(SavingOnEachEngine, ALockIsWaitedFor) {
  const double before = Stored("FLeft");
  MoveCustomer();
  TableLock lock(databases_, GetParam(), "TDBillDetail");
  WhenShown("waiting", [&lock](QDialog&) { lock.Release(); });
  Trigger("save");
  EXPECT_FALSE(Window().isWindowModified());
  EXPECT_NEAR(Stored("FLeft"), before + TwipsOf(1), 0.02);
}

INSTANTIATE_TEST_SUITE_P(Each, SavingOnEachEngine, kEachEngine, NameOfEngine);

}  // namespace
}  // namespace td::designer
