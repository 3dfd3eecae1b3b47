// The overlay settings dialog, used with mouse and keyboard; the database is read back.
#include "page_document/page_document.h"
#include "service/printer.h"
#include "service/request.h"
#include "service/td_set.h"
#include "shown_dialog.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

using SettingsDialog = DialogOnDatabase;

TEST_F(SettingsDialog, ShowsTheSelectedFormat) {
  ShowSettings([](DialogUser& user) {
    EXPECT_EQ(user.Entries("cmbTdBillName"), (Texts{"销售单", "两联单"}));
    EXPECT_EQ(user.SelectedText("cmbTdBillName"), "销售单");
    EXPECT_EQ(user.Text("txtRowHeight"), "300");
    EXPECT_EQ(user.Text("txtRowsPerPage"), "10");
    EXPECT_TRUE(user.IsChecked("optOrientation", 0));
    const Texts printers = user.Entries("cmbPrintDevice");
    ASSERT_GT(printers.size(), 3U);
    EXPECT_EQ(printers[0], "windows默认打印机");
    EXPECT_EQ(printers[1], "--------------------");
    EXPECT_EQ(user.Selected("cmbPrintDevice"), 0);
  });
  EXPECT_EQ(Boxes(), Texts());
}

TEST_F(SettingsDialog, SavesWhatWasTypedClickedAndChosen) {
  ShowSettings([](DialogUser& user) {
    user.Choose("cmbTdBillName", "两联单");
    EXPECT_TRUE(WaitFor([&] { return user.Text("txtRowHeight") == "350.5"; }));
    EXPECT_TRUE(WaitFor([&] { return user.SelectedText("cmbPrintDevice") == "QbTd-PDF"; }));
    user.Type("txtLeft", "-56.7");
    user.Type("txtTop", "12毫米");
    user.Type("txtHeader", "");
    user.Type("txtRowHeight", "abc");
    user.Type("txtRowsPerPage", "2.5");
    user.Type("txtQtysPerRow", "3");
    user.Click("optOrientation", 1);
    user.Click("chkHeaderPerPage");
    user.Click("chkIntegralPage");
    user.Choose("cmbPrintDevice", "QbTd-Fixed");
    user.Click("cmdOk");
    EXPECT_TRUE(user.WaitUntilClosed());
  });
  EXPECT_EQ(Boxes(), Texts());
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
  ShowSettings([](DialogUser& user) {
    user.Choose("cmbTdBillName", "两联单");
    EXPECT_TRUE(WaitFor([&] { return user.SelectedText("cmbPrintDevice") == "QbTd-PDF"; }));
    user.Choose("cmbPrintDevice", "--------------------");
    user.Click("cmdOk");
    EXPECT_TRUE(user.WaitUntilClosed());
  });
  EXPECT_EQ(Setting("FPrintDevice", "两联单"), "");
}

TEST_F(SettingsDialog, TheKeyboardAloneConfirms) {
  const std::vector<Use> ways = {[](DialogUser& user) { user.PressWithAlt('O'); },
                                 [](DialogUser& user) { user.Press(VK_RETURN); }};
  for (const Use& confirm : ways) {
    other_.Run("update TDBill set FAdjuctLeft=0");
    ShowSettings([&](DialogUser& user) {
      user.Type("txtLeft", "40");
      confirm(user);
      EXPECT_TRUE(user.WaitUntilClosed());
    });
    EXPECT_EQ(Setting("FAdjuctLeft"), "40");
  }
}

TEST_F(SettingsDialog, NothingIsWrittenUnlessItIsConfirmed) {
  const std::vector<Use> ways = {
      [](DialogUser& user) { user.Click("cmdExit"); },
      [](DialogUser& user) { user.Press(VK_ESCAPE); },
      [](DialogUser& user) { user.PressWithAlt('C'); },
      [](DialogUser& user) {
        user.Focus("cmdExit");
        user.Press(VK_RETURN);
      },
      [](DialogUser& user) { PostMessageW(user.Window(), WM_SYSCOMMAND, SC_CLOSE, 0); }};
  for (const Use& leave : ways) {
    Context().TDBillName = "销售单";
    ShowSettings([&](DialogUser& user) {
      user.Type("txtLeft", "99");
      leave(user);
      EXPECT_TRUE(user.WaitUntilClosed());
    });
    EXPECT_EQ(Setting("FAdjuctLeft"), "0");
    EXPECT_EQ(Context().TDBillName, "");
  }
}

TEST_F(SettingsDialog, TheTabKeyVisitsTheControlsFromTopToBottom) {
  ShowSettings([](DialogUser& user) {
    EXPECT_EQ(user.FocusedControl(), user.Control("cmbTdBillName")) << "the first one to begin";
    for (const char* next :
         {"txtLeft", "txtTop", "txtHeader", "txtRowHeight", "txtRowsPerPage", "txtQtysPerRow",
          "cmbPrintDevice", "optOrientation", "chkHeaderPerPage", "chkFooterPerPage",
          "chkIntegralPage", "cmdOk", "cmdExit", "cmbTdBillName"}) {
      user.Press(VK_TAB);
      EXPECT_TRUE(WaitFor([&] { return user.FocusedControl() == user.Control(next); })) << next;
    }
    user.PressShiftTab();
    EXPECT_TRUE(WaitFor([&] { return user.FocusedControl() == user.Control("cmdExit"); }));
  });
}

TEST_F(SettingsDialog, TabGoesToTheOptionThatIsSetAndArrowsToTheOther) {
  other_.Run("update TDBill set FOrientation=1");
  ShowSettings([](DialogUser& user) {
    EXPECT_TRUE(user.IsChecked("optOrientation", 1));
    user.Focus("cmbPrintDevice");
    user.Press(VK_TAB);
    EXPECT_TRUE(
        WaitFor([&] { return user.FocusedControl() == user.Control("optOrientation", 1); }));
    EXPECT_TRUE(user.IsChecked("optOrientation", 1));
    user.Press(VK_UP);
    EXPECT_TRUE(WaitFor([&] { return user.IsChecked("optOrientation", 0); }));
    EXPECT_FALSE(user.IsChecked("optOrientation", 1));
  });
}

TEST_F(SettingsDialog, ALockedDatabaseIsWaitedFor) {
  ShowSettings([this](DialogUser& user) {
    user.Type("txtLeft", "40");
    other_.Run("begin exclusive");
    user.Click("cmdOk");
    EXPECT_TRUE(WaitFor([&] {
      // The thread is busy with the save as soon as it leaves a question unanswered.
      DWORD_PTR result = 0;
      return SendMessageTimeoutW(user.Window(), WM_NULL, 0, 0, SMTO_NORMAL, 50, &result) == 0;
    }));
    other_.Run("rollback");
    EXPECT_TRUE(user.WaitUntilClosed());
  });
  EXPECT_EQ(Boxes(), Texts());
  EXPECT_EQ(Setting("FAdjuctLeft"), "40");
}

TEST_F(SettingsDialog, AFailingSecondUpdateLeavesTheDialogOpenAndNoFormatSelected) {
  other_.Run(
      "create trigger refuse before update on TDBill when new.FAdjuctLeft<>old.FAdjuctLeft "
      "begin select raise(abort, 'disk is full'); end");
  ShowSettings([this](DialogUser& user) {
    user.Type("txtLeft", "40");
    user.Click("cmdOk");
    EXPECT_TRUE(WaitForBoxes(1));
    EXPECT_TRUE(user.IsShown());
    EXPECT_EQ(user.Text("txtLeft"), "40");
    EXPECT_EQ(Setting("FSelected"), "0");
    other_.Run("drop trigger refuse");
    user.Click("cmdOk");
    EXPECT_TRUE(user.WaitUntilClosed()) << "the user can try again";
  });
  ASSERT_EQ(Boxes().size(), 1U);
  EXPECT_NE(Boxes()[0].find("disk is full"), std::string::npos) << Boxes()[0];
  EXPECT_EQ(Setting("FSelected"), "1");
}

TEST_F(SettingsDialog, OfTwoSelectedFormatsTheLastIsShownAndSavingLeavesOne) {
  other_.Run("update TDBill set FSelected=1");
  ShowSettings([](DialogUser& user) {
    EXPECT_EQ(user.Selected("cmbTdBillName"), 1);
    user.Click("cmdOk");
    EXPECT_TRUE(user.WaitUntilClosed());
  });
  EXPECT_EQ(Cell("select sum(FSelected) from TDBill where FTranType=21"), "1");
  EXPECT_EQ(Setting("FSelected", "入库单"), "1") << "another bill type";
}

TEST_F(SettingsDialog, AQuoteInAFormatsNameIsReportedAndHarmsNothingElse) {
  other_.Run("update TDBill set FTDBillName='O''Brien' where FTDBillName='两联单'");
  ShowSettings([this](DialogUser& user) {
    user.Choose("cmbTdBillName", "O'Brien");
    EXPECT_TRUE(WaitForBoxes(1)) << "when it was chosen";
    EXPECT_EQ(user.Text("txtRowHeight"), "300") << "what was shown before";
    user.Click("cmdOk");
    EXPECT_TRUE(WaitForBoxes(2)) << "when it was saved";
    EXPECT_TRUE(user.IsShown());
  });
  EXPECT_EQ(Cell("select count(*) from TDBill"), "3");
  EXPECT_EQ(Cell("select FRowHeight from TDBill where FTDBillID=2"), "350.5");
}

TEST_F(SettingsDialog, AnUnreadableDatabaseIsReportedAndTheDialogOpensBlank) {
  const std::string missing = "sqlite:" + folder_.File("missing.db");
  WhileShown(
      "frmAdjuct", [&] { TDSet(desktop_.Get()).ShowSettings(missing, 21); },
      [](DialogUser& user) {
        EXPECT_EQ(user.Entries("cmbTdBillName"), Texts());
        EXPECT_EQ(user.Text("txtLeft"), "");
      });
  EXPECT_EQ(Boxes().size(), 1U);
}

TEST_F(SettingsDialog, TheWheelOverAListChangesNothingUntilItHasTheFocus) {
  ShowSettings([](DialogUser& user) {
    user.Type("txtLeft", "567");
    user.TurnWheelOver("cmbTdBillName");
    user.TurnWheelOver("cmbPrintDevice");
    user.Type("txtTop", "1");  // comes after both
    EXPECT_EQ(user.SelectedText("cmbTdBillName"), "销售单");
    EXPECT_EQ(user.Selected("cmbPrintDevice"), 0);
    EXPECT_EQ(user.Text("txtLeft"), "567") << "what was typed stands";
    user.Focus("cmbPrintDevice");
    user.TurnWheelOver("cmbPrintDevice");
    EXPECT_TRUE(WaitFor([&] { return user.Selected("cmbPrintDevice") == 1; }));
  });
}

TEST_F(SettingsDialog, TheNextPrintFollowsTheSavedSettings) {
  ShowSettings([](DialogUser& user) {
    user.Type("txtRowsPerPage", "2");
    user.Click("optOrientation", 1);
    user.Click("cmdOk");
    EXPECT_TRUE(user.WaitUntilClosed());
  });
  std::vector<bool> pages;
  DesktopOptions options;
  options.stateDirectory = folder_.Path().string();
  options.documentSink = [&](const PageDocument& document) {
    for (const Page& page : document.Pages()) pages.push_back(page.landscape);
  };
  DesktopPlatform printing(options);
  Printer(printing.Get())
      .DoPrint(true, connection_, 21, false, false,
               printing.Get().database.OpenQuery(
                   connection_, "select 7 as FInterID union all select 7 union all select 7"));
  EXPECT_EQ(pages, (std::vector<bool>{true, true})) << "two rows a page, across the sheet";
}

}  // namespace
}  // namespace td
