// Opening and saving formats, and the questions before something would be lost.
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>

#include "designer/window/clipboard.h"
#include "designer/window/connection_dialog.h"
#include "shown_designer.h"
#include "table_lock.h"

namespace td::designer {
namespace {

class SavingFormats : public ShownDesigner {
 protected:
  void SetUp() override { Open(); }

  void MoveCustomer() {
    Selected().Select({ItemNamed("客户").id});
    Press(Qt::Key_Right, Qt::ShiftModifier);
  }
  void RunAsAnother(const std::string& script) { RunScriptOn(SampleEngine::kSqlite, script); }
};

TEST_F(SavingFormats, TheSelectedFormatIsOpenedFirst) {
  EXPECT_EQ(Document().Current().Name(), Cell("select FTDBillName from TDBill where FTranType=21 "
                                              "and FSelected=1"));
  EXPECT_FALSE(ActionNamed("save").isEnabled());
  EXPECT_FALSE(ActionNamed("undo").isEnabled());
}

TEST_F(SavingFormats, ASaveWritesWhatWasMoved) {
  const double before = std::stod(Cell(
      "select max(FLeft) from TDBillDetail where FObjectFieldName='客户' and FTDBillID=(select "
      "FTDBillID from TDBill where FSelected=1 and FTranType=21)"));
  MoveCustomer();
  EXPECT_TRUE(Window().isWindowModified());
  Trigger("save");
  EXPECT_FALSE(Window().isWindowModified());
  EXPECT_NEAR(
      std::stod(Cell("select max(FLeft) from TDBillDetail where FObjectFieldName='客户' and "
                     "FTDBillID=(select FTDBillID from TDBill where FSelected=1 and "
                     "FTranType=21)")),
      before + TwipsOf(1), 0.02);
  Trigger("undo");
  EXPECT_TRUE(Window().isWindowModified()) << "steps from before the save can be undone";
}

TEST_F(SavingFormats, ClosingAsksBeforeAChangeIsLost) {
  MoveCustomer();
  Answer("question", "cancel");
  Window().close();
  EXPECT_TRUE(Window().isVisible());
  Answer("question", "answer1");
  Window().close();
  EXPECT_FALSE(Window().isVisible());
  EXPECT_EQ(asked_.size(), 2U);
}

TEST_F(SavingFormats, ANewFormatIsNamedAndSaved) {
  AnswerName("新表单");
  Trigger("new");
  EXPECT_EQ(Document().Current().Name(), "新表单");
  EXPECT_TRUE(Document().Current().items.Empty());
  AnswerName("新表单");
  Trigger("save");
  EXPECT_EQ(Cell("select count(*) from TDBill where FTDBillName='新表单' and FTranType=21"), "1");
  EXPECT_EQ(Cell("select FSelected from TDBill where FTDBillName='新表单'"), "0");
}

TEST_F(SavingFormats, ANameThatIsTakenIsAskedForAgain) {
  const std::string taken = Document().Current().Name();
  WhenShown("name", [&](QDialog& dialog) {
    dialog.findChild<QLineEdit*>("edit")->setText(QString::fromStdString(taken));
    Answer("message", "close");
    WhenShown("name", [](QDialog& again) { again.reject(); });
    QTest::mouseClick(dialog.findChild<QPushButton*>("accept"), Qt::LeftButton);
  });
  Trigger("new");
  EXPECT_EQ(Document().Current().Name(), taken);
}

TEST_F(SavingFormats, AFormatIsCopiedRenamedSelectedAndDeleted) {
  const std::size_t items = Document().Current().items.Size();
  const std::string original = Document().Current().Name();
  AnswerName("副本一");
  Trigger("copyFormat");
  EXPECT_EQ(Document().Current().Name(), "副本一");
  EXPECT_EQ(Document().Current().items.Size(), items);
  AnswerName("副本二");
  Trigger("rename");
  EXPECT_EQ(Cell("select count(*) from TDBill where FTDBillName='副本一'"), "0");
  EXPECT_EQ(Document().Current().Name(), "副本二");
  Trigger("select");
  EXPECT_EQ(Cell("select FTDBillName from TDBill where FTranType=21 and FSelected=1"), "副本二");
  Answer("question", "cancel");
  Trigger("deleteFormat");
  EXPECT_EQ(Cell("select count(*) from TDBill where FTDBillName='副本二'"), "1");
  Answer("question", "answer0");
  Trigger("deleteFormat");
  EXPECT_EQ(Cell("select count(*) from TDBill where FTDBillName='副本二'"), "0");
  EXPECT_NE(Document().Current().Name(), "副本二");
}

TEST_F(SavingFormats, AnotherFormatIsChosenFromTheList) {
  RunAsAnother(
      "insert into TDBill (FTranType,FTDBillName,FRowsPerPage,FRowHeight) "
      "values (21,'另一格式',5,400)");
  WhenShown("formats", [](QDialog& dialog) {
    auto* list = dialog.findChild<QListWidget*>("list");
    for (int i = 0; i < list->count(); ++i) {
      if (list->item(i)->text() == "另一格式") list->setCurrentRow(i);
    }
    QTest::mouseClick(dialog.findChild<QPushButton*>("accept"), Qt::LeftButton);
  });
  Trigger("open");
  EXPECT_EQ(Document().Current().Name(), "另一格式");
  EXPECT_EQ(Sheet().Layout().rowsPerPage, 5);
}

TEST_F(SavingFormats, ALockIsWaitedForUntilTheUserGivesUp) {
  MoveCustomer();
  TableLock lock(databases_, SampleEngine::kSqlite, "TDBillDetail");
  WhenShown("waiting", [](QDialog& dialog) {
    QTest::mouseClick(dialog.findChild<QPushButton*>(), Qt::LeftButton);
  });
  Answer("message", "close");
  Trigger("save");
  EXPECT_TRUE(Window().isWindowModified());
  WhenShown("waiting", [&lock](QDialog&) { lock.Release(); });
  Trigger("save");
  EXPECT_FALSE(Window().isWindowModified());
}

TEST_F(SavingFormats, WhatSomebodyElseHasChangedIsShownAndDecided) {
  const std::string items =
      "FObjectFieldName='客户' and FTDBillID=(select FTDBillID from TDBill where FSelected=1 and "
      "FTranType=21)";
  MoveCustomer();
  RunAsAnother("update TDBillDetail set FTop=777 where " + items);
  Answer("question", "cancel");
  Trigger("save");
  EXPECT_TRUE(Window().isWindowModified());
  EXPECT_EQ(std::stod(Cell("select FTop from TDBillDetail where " + items)), 777);
  Answer("question", "answer0");
  Trigger("save");
  EXPECT_FALSE(Window().isWindowModified());
  EXPECT_NE(std::stod(Cell("select FTop from TDBillDetail where " + items)), 777);

  MoveCustomer();
  RunAsAnother("update TDBillDetail set FTop=888 where " + items);
  Answer("question", "answer1");
  Trigger("save");
  EXPECT_FALSE(Window().isWindowModified());
  EXPECT_EQ(ItemNamed("客户").Place().top, 888);
}

TEST_F(SavingFormats, AFormatThatIsGoneIsSavedAsANewOne) {
  MoveCustomer();
  const std::string name = Document().Current().Name();
  RunAsAnother(
      "delete from TDBillDetail where FTDBillID=(select FTDBillID from TDBill where "
      "FSelected=1 and FTranType=21); delete from TDBill where FSelected=1 and FTranType=21;");
  Answer("question", "answer0");
  Trigger("save");
  EXPECT_EQ(Cell("select count(*) from TDBill where FTDBillName='" + name + "'"), "1");
}

// The window is gone without having closed, as after a crash.
TEST_F(SavingFormats, WhatACrashLeftIsOffered) {
  MoveCustomer();
  const Box moved = PlaceOf("客户");
  RecoveryFile file((folder_ / "state").string(), SampleOn(SampleEngine::kSqlite), 21,
                    Document().Base().Name());
  ASSERT_TRUE(file.Keep(Document().Base(), Document().Current()));
  Answer("question", "answer0");
  Open();
  EXPECT_EQ(PlaceOf("客户"), moved);
  EXPECT_TRUE(Window().isWindowModified());
  Trigger("save");
  EXPECT_FALSE(file.Find());
}

TEST_F(SavingFormats, WhatACrashLeftCanBeDiscarded) {
  MoveCustomer();
  const Box moved = PlaceOf("客户");
  RecoveryFile file((folder_ / "state").string(), SampleOn(SampleEngine::kSqlite), 21,
                    Document().Base().Name());
  ASSERT_TRUE(file.Keep(Document().Base(), Document().Current()));
  Answer("question", "answer1");
  Open();
  EXPECT_NE(PlaceOf("客户"), moved);
  EXPECT_FALSE(file.Find());
}

TEST_F(SavingFormats, ItemsTravelToAFormatOfAnotherBillTypeWithTheirVariables) {
  Selected().Select({ItemNamed("客户").id});
  Trigger("copy");
  const std::string column = VariableOf(Document().Current(), ItemNamed("客户"))->Name();
  Open({77});
  EXPECT_TRUE(Document().Current().items.Empty());
  EXPECT_TRUE(Document().Current().variables.empty());
  Trigger("paste");
  EXPECT_EQ(VariableOf(Document().Current(), ItemNamed("客户"))->Name(), column);
  Trigger("undo");
  EXPECT_TRUE(Document().Current().variables.empty());
}

// A designer that was started without a database.
TEST_F(SavingFormats, ADatabaseIsAskedForAndRememberedWithoutPasswords) {
  const std::string state = (folder_ / "state").string();
  WhenShown("connection", [this](QDialog& dialog) {
    auto* text = dialog.findChild<QLineEdit*>("text");
    text->setText("sqlite:/nonexistent/shop.db");
    Answer("message", "close");
    WhenShown("connection", [](QDialog& again) {
      again.findChild<QLineEdit*>("text")->setText(
          QString::fromStdString(SampleOn(SampleEngine::kSqlite)));
      again.findChild<QSpinBox*>("type")->setValue(22);
      QTest::mouseClick(again.findChild<QPushButton*>("accept"), Qt::LeftButton);
    });
    QTest::mouseClick(dialog.findChild<QPushButton*>("accept"), Qt::LeftButton);
  });
  const auto chosen = AskForConnection(databases_, state);
  ASSERT_TRUE(chosen);
  EXPECT_EQ(chosen->connection, SampleOn(SampleEngine::kSqlite));
  EXPECT_EQ(chosen->billType, 22);
  WhenShown("connection", [](QDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QLineEdit*>("text")->text().toStdString(),
              SampleOn(SampleEngine::kSqlite));
    EXPECT_EQ(dialog.findChild<QSpinBox*>("type")->value(), 22);
    dialog.reject();
  });
  EXPECT_FALSE(AskForConnection(databases_, state));
}

}  // namespace
}  // namespace td::designer
