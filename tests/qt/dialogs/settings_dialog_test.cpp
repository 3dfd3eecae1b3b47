// The overlay settings dialog, used with mouse and keyboard; the database is read back.
#include <QTest>
#include <functional>
#include <memory>

#include "../wheel.h"
#include "passing_database.h"
#include "service/request.h"
#include "service/td_set.h"
#include "shown_dialog.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

using SettingsDialog = ShownDialog;

TEST_F(SettingsDialog, ShowsTheSelectedFormat) {
  ShowSettings([](DialogWindow& window) {
    EXPECT_EQ(window.windowTitle(), "套打设置");
    EXPECT_EQ(EntriesOf(window, "cmbTdBillName"), (Texts{"销售单", "两联单"}));
    EXPECT_EQ(window.Named<QComboBox>("cmbTdBillName").currentText(), "销售单");
    EXPECT_EQ(TextOf(window, "txtRowHeight"), "300");
    EXPECT_EQ(TextOf(window, "txtRowsPerPage"), "10");
    EXPECT_EQ(window.Named<QButtonGroup>("optOrientation").checkedId(), 0);
    const Texts printers = EntriesOf(window, "cmbPrintDevice");
    ASSERT_GT(printers.size(), 3U);
    EXPECT_EQ(printers[0], "windows默认打印机");
    EXPECT_EQ(printers[1], "--------------------");
    EXPECT_EQ(window.Named<QComboBox>("cmbPrintDevice").currentIndex(), 0);
  });
  EXPECT_EQ(boxes_, Texts());
}

TEST_F(SettingsDialog, SavesWhatWasTypedClickedAndChosen) {
  ShowSettings([](DialogWindow& window) {
    Choose(window, "cmbTdBillName", "两联单");
    EXPECT_EQ(TextOf(window, "txtRowHeight"), "350.5");
    EXPECT_EQ(window.Named<QComboBox>("cmbPrintDevice").currentText(), "QbTd-PDF");
    Type(window, "txtLeft", "-56.7");
    Type(window, "txtTop", "12毫米");
    Type(window, "txtHeader", "");
    Type(window, "txtRowHeight", "abc");
    Type(window, "txtRowsPerPage", "2.5");
    Type(window, "txtQtysPerRow", "3");
    Click(*window.Named<QButtonGroup>("optOrientation").button(1));
    Click(window.Named<QCheckBox>("chkHeaderPerPage"));
    Click(window.Named<QCheckBox>("chkIntegralPage"));
    Choose(window, "cmbPrintDevice", "QbTd-Fixed");
    Click(window, "cmdOk");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(boxes_, Texts());
  EXPECT_EQ(Setting("FAdjuctLeft", "两联单"), "-56.7");
  EXPECT_EQ(Setting("FAdjuctTop", "两联单"), "12");
  EXPECT_EQ(Setting("FAdjuctHeader", "两联单"), "0");
  EXPECT_EQ(Setting("FRowHeight", "两联单"), "0");
  EXPECT_EQ(Setting("FRowsPerPage", "两联单"), "2.5");
  EXPECT_EQ(Setting("FQtysPerRow", "两联单"), "3");
  EXPECT_EQ(Setting("FOrientation", "两联单"), "1");
  EXPECT_EQ(Setting("FHeaderPerPage", "两联单"), "0");
  EXPECT_EQ(Setting("FFooterPerPage", "两联单"), "0");
  EXPECT_EQ(Setting("FIntegralPage", "两联单"), "1");
  EXPECT_EQ(Setting("FPrintDevice", "两联单"), "QbTd-Fixed");
  EXPECT_EQ(Setting("FSelected", "两联单"), "1");
  EXPECT_EQ(Setting("FSelected"), "0");
  EXPECT_EQ(Setting("FRowHeight"), "300") << "the other format stays";
}

TEST_F(SettingsDialog, TheSeparatorCanBeChosenAndSavesAsNoPrinter) {
  ShowSettings([](DialogWindow& window) {
    Choose(window, "cmbTdBillName", "两联单");
    Choose(window, "cmbPrintDevice", "--------------------");
    EXPECT_EQ(window.Named<QComboBox>("cmbPrintDevice").currentIndex(), 1);
    Click(window, "cmdOk");
  });
  EXPECT_EQ(Setting("FPrintDevice", "两联单"), "");
}

TEST_F(SettingsDialog, TheKeyboardAloneConfirms) {
  const std::vector<Use> ways = {[](DialogWindow& window) { PressMnemonic(window, Qt::Key_O); },
                                 [](DialogWindow& window) { PressKey(window, Qt::Key_Return); }};
  for (const Use& confirm : ways) {
    database_.Run("update TDBill set FAdjuctLeft=0");
    ShowSettings([&](DialogWindow& window) {
      Type(window, "txtLeft", "40");
      confirm(window);
      EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(Setting("FAdjuctLeft"), "40");
  }
}

TEST_F(SettingsDialog, NothingIsWrittenUnlessItIsConfirmed) {
  const std::vector<Use> ways = {[](DialogWindow& window) { Click(window, "cmdExit"); },
                                 [](DialogWindow& window) { PressKey(window, Qt::Key_Escape); },
                                 [](DialogWindow& window) {
                                   window.Named<QPushButton>("cmdExit").setFocus();
                                   PressKey(window, Qt::Key_Return);
                                 },
                                 [](DialogWindow& window) { window.close(); }};
  for (const Use& leave : ways) {
    Context().TDBillName = "销售单";
    ShowSettings([&](DialogWindow& window) {
      Type(window, "txtLeft", "99");
      leave(window);
      EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(Setting("FAdjuctLeft"), "0");
    EXPECT_EQ(Context().TDBillName, "");
  }
}

TEST_F(SettingsDialog, TheTabKeyVisitsTheFieldsFromTopToBottom) {
  ShowSettings([](DialogWindow& window) {
    Texts visited;
    window.Named<QComboBox>("cmbTdBillName").setFocus();
    for (int i = 0; i < 8; ++i) {
      visited.push_back(window.focusWidget()->objectName().toStdString());
      PressKey(window, Qt::Key_Tab);
    }
    EXPECT_EQ(visited, (Texts{"cmbTdBillName", "txtLeft", "txtTop", "txtHeader", "txtRowHeight",
                              "txtRowsPerPage", "txtQtysPerRow", "cmbPrintDevice"}));
  });
}

// Runs statements on another database, and tells of each failure before it goes on.
class WatchedConnection : public Connection {
 public:
  WatchedConnection(std::unique_ptr<Connection> connection,
                    std::function<void(const Failure&)> failed)
      : connection_(std::move(connection)), failed_(std::move(failed)) {}

  void Execute(const std::string& sql) override {
    try {
      connection_->Execute(sql);
    } catch (const Failure& failure) {
      failed_(failure);
      throw;
    }
  }

 private:
  std::unique_ptr<Connection> connection_;
  std::function<void(const Failure&)> failed_;
};

class WatchedDatabase : public PassingDatabase {
 public:
  WatchedDatabase(Database& database, std::function<void(const Failure&)> failed)
      : PassingDatabase(database), failed_(std::move(failed)) {}

  std::unique_ptr<Connection> Connect(const std::string& connection) override {
    return std::make_unique<WatchedConnection>(PassingDatabase::Connect(connection), failed_);
  }

 private:
  std::function<void(const Failure&)> failed_;
};

TEST_F(SettingsDialog, ALockedDatabaseIsWaitedFor) {
  std::unique_ptr<TableLock> lock;
  int failures = 0;
  WatchedDatabase watched(desktop_.Get().database, [&](const Failure& failure) {
    EXPECT_NE(failure.Description().find("锁"), std::string::npos) << failure.Description();
    if (++failures == 2) lock->Release();
  });
  Platform platform = PlatformOn(watched, desktop_.Get());
  WhenDialogIsShown([&](DialogWindow& window) {
    Type(window, "txtLeft", "40");
    lock = database_.Lock("TDBill");
    Click(window, "cmdOk");
    EXPECT_FALSE(window.isVisible());
  });
  TDSet(platform).ShowSettings(database_.Connection(), 21);
  EXPECT_EQ(failures, 2);
  EXPECT_EQ(boxes_, Texts());
  EXPECT_EQ(Setting("FAdjuctLeft"), "40");
}

TEST_F(SettingsDialog, AFailingSecondUpdateLeavesTheDialogOpenAndNoFormatSelected) {
  database_.Refuse("update", "TDBill", "new.FAdjuctLeft<>old.FAdjuctLeft");
  ShowSettings([this](DialogWindow& window) {
    Type(window, "txtLeft", "40");
    Click(window, "cmdOk");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(TextOf(window, "txtLeft"), "40");
    EXPECT_EQ(Setting("FSelected"), "0");
    database_.Allow("TDBill");
    Click(window, "cmdOk");
    EXPECT_FALSE(window.isVisible()) << "the user can try again";
  });
  ASSERT_EQ(boxes_.size(), 1U);
  EXPECT_NE(boxes_[0].find("disk is full"), std::string::npos) << boxes_[0];
  EXPECT_EQ(Setting("FSelected"), "1");
}

TEST_F(SettingsDialog, OfTwoSelectedFormatsTheLastIsShownAndSavingLeavesOne) {
  database_.Run("update TDBill set FSelected=1");
  ShowSettings([](DialogWindow& window) {
    EXPECT_EQ(window.Named<QComboBox>("cmbTdBillName").currentIndex(), 1);
    Click(window, "cmdOk");
  });
  EXPECT_EQ(database_.Cell("select sum(FSelected) from TDBill where FTranType=21"), "1");
  EXPECT_EQ(Setting("FSelected", "入库单"), "1") << "another bill type";
}

TEST_F(SettingsDialog, AQuoteInAFormatsNameIsReportedAndHarmsNothingElse) {
  database_.Run("update TDBill set FTDBillName='O''Brien' where FTDBillName='两联单'");
  ShowSettings([](DialogWindow& window) {
    Choose(window, "cmbTdBillName", "O'Brien");
    EXPECT_EQ(TextOf(window, "txtRowHeight"), "300") << "what was shown before";
    Click(window, "cmdOk");
    EXPECT_TRUE(window.isVisible());
  });
  EXPECT_EQ(boxes_.size(), 2U) << "when it was chosen, and when it was saved";
  EXPECT_EQ(database_.Cell("select count(*) from TDBill"), "3");
  EXPECT_EQ(database_.Cell("select FRowHeight from TDBill where FTDBillID=2"), "350.5");
}

TEST_F(SettingsDialog, AnUnreadableDatabaseIsReportedAndTheDialogOpensBlank) {
  WhenDialogIsShown([](DialogWindow& window) {
    EXPECT_EQ(EntriesOf(window, "cmbTdBillName"), Texts());
    EXPECT_EQ(TextOf(window, "txtLeft"), "");
  });
  TDSet(desktop_.Get()).ShowSettings(database_.MissingConnection(), 21);
  EXPECT_EQ(boxes_.size(), 1U);
}

TEST_F(SettingsDialog, TheWheelOverAListChangesNothingUntilItHasTheFocus) {
  ShowSettings([](DialogWindow& window) {
    auto& formats = window.Named<QComboBox>("cmbTdBillName");
    auto& printers = window.Named<QComboBox>("cmbPrintDevice");
    Type(window, "txtLeft", "567");
    TurnWheelOver(formats);
    TurnWheelOver(printers);
    EXPECT_EQ(formats.currentText(), "销售单");
    EXPECT_EQ(printers.currentIndex(), 0);
    EXPECT_EQ(TextOf(window, "txtLeft"), "567") << "what was typed stands";
    EXPECT_TRUE(window.Named<QLineEdit>("txtLeft").hasFocus());
    printers.setFocus();
    TurnWheelOver(printers);
    EXPECT_EQ(printers.currentIndex(), 1);
  });
}

TEST_F(SettingsDialog, TabGoesToTheOptionThatIsSet) {
  database_.Run("update TDBill set FOrientation=1");
  ShowSettings([](DialogWindow& window) {
    auto& options = window.Named<QButtonGroup>("optOrientation");
    ASSERT_EQ(options.checkedId(), 1);
    window.Named<QComboBox>("cmbPrintDevice").setFocus();
    PressKey(window, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), options.button(1));
    EXPECT_EQ(options.checkedId(), 1);
    PressKey(window, Qt::Key_Up);
    EXPECT_EQ(options.checkedId(), 0);
  });
}

}  // namespace
}  // namespace td
