// The dialog behind the logic: selections and clicks, closing, failures of what it calls back.
#include "qt/system/qt_dialog.h"

#include "qt/system/message_boxes.h"
#include "qt/system/qt_windows.h"
#include "shown_dialog.h"
#include "test_tools.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

class DialogOfLogic : public ShownDialog {
 protected:
  void Show(std::function<void()> load, Use use) {
    dialog_->Connect({.Load = std::move(load),
                      .Click =
                          [this](std::string_view control) {
                            clicked_.emplace_back(control);
                            if (control == "cmdExit") throw Failure(7, "没有内存");
                          },
                      .Unload = [this] { ++unloads_; }});
    WhenDialogIsShown(std::move(use));
    dialog_->ShowModal();
  }

  FrameSettings settings_;
  MessageBoxes messages_{MessageMode::kStandardError};
  QtWindows windows_{settings_, {}, messages_};
  std::unique_ptr<Dialog> dialog_ = windows_.CreateDialog("frmAdjuct");
  Texts clicked_;
  int unloads_ = 0;
};

TEST_F(DialogOfLogic, StartsWithEmptyControlsAndNoSelection) {
  EXPECT_EQ(dialog_->Text("txtLeft"), "");
  EXPECT_EQ(dialog_->CheckValue("chkHeaderPerPage"), 0);
  EXPECT_EQ(dialog_->Option("optOrientation"), -1);
  EXPECT_EQ(dialog_->ListCount("cmbPrintDevice"), 0);
  EXPECT_EQ(dialog_->ListIndex("cmbPrintDevice"), -1);
  EXPECT_EQ(dialog_->ListText("cmbPrintDevice"), "");
}

TEST_F(DialogOfLogic, AddingEntriesSelectsNone) {
  dialog_->AddItem("cmbPrintDevice", "甲");
  dialog_->AddItem("cmbPrintDevice", "乙");
  EXPECT_EQ(dialog_->ListIndex("cmbPrintDevice"), -1);
  EXPECT_EQ(dialog_->ListItem("cmbPrintDevice", 1), "乙");
  dialog_->ClearList("cmbPrintDevice");
  dialog_->AddItem("cmbPrintDevice", "丙");
  EXPECT_EQ(dialog_->ListIndex("cmbPrintDevice"), -1);
}

TEST_F(DialogOfLogic, EverySelectionOfTheLogicOrTheUserIsAClick) {
  Show(
      [this] {
        dialog_->AddItem("cmbTdBillName", "甲");
        dialog_->AddItem("cmbTdBillName", "乙");
        EXPECT_EQ(clicked_, Texts());
        dialog_->PutListIndex("cmbTdBillName", 1);
        dialog_->PutListIndex("cmbTdBillName", 1);
        EXPECT_EQ(clicked_.size(), 2U);
      },
      [this](DialogWindow& window) {
        Choose(window, "cmbTdBillName", "乙");
        EXPECT_EQ(clicked_.size(), 3U) << "the same entry again";
        Choose(window, "cmbTdBillName", "甲");
        Click(window, "cmdOk");
      });
  EXPECT_EQ(clicked_,
            (Texts{"cmbTdBillName", "cmbTdBillName", "cmbTdBillName", "cmbTdBillName", "cmdOk"}));
  EXPECT_EQ(dialog_->ListText("cmbTdBillName"), "甲");
}

TEST_F(DialogOfLogic, CanBeReadAfterItWasClosed) {
  Show([] {}, [](DialogWindow& window) { Type(window, "txtLeft", "12"); });
  EXPECT_EQ(unloads_, 1);
  EXPECT_EQ(dialog_->Text("txtLeft"), "12");
  dialog_->Unload();
  EXPECT_EQ(unloads_, 1);
}

TEST_F(DialogOfLogic, ClosedByItsLoadIsNeverShown) {
  Show([this] { dialog_->Unload(); }, [](DialogWindow&) { ADD_FAILURE() << "it was shown"; });
  EXPECT_EQ(unloads_, 1);
}

TEST_F(DialogOfLogic, AFailureOfAClickClosesItAndLeavesTheCall) {
  EXPECT_EQ(NumberOf([&] {
              Show([] {},
                   [](DialogWindow& window) {
                     Click(window, "cmdExit");
                     EXPECT_FALSE(window.isVisible());
                   });
            }),
            7);
  EXPECT_EQ(unloads_, 1);
}

TEST_F(DialogOfLogic, AFailureOfTheLoadLeavesTheCall) {
  EXPECT_EQ(NumberOf([&] { Show([] { throw Failure(9, "坏"); }, [](DialogWindow&) {}); }), 9);
}

TEST_F(DialogOfLogic, RefusesEntriesOptionsAndControlsThatItDoesNotHave) {
  EXPECT_EQ(NumberOf([&] { dialog_->PutListIndex("cmbPrintDevice", 0); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { (void)dialog_->ListItem("cmbPrintDevice", -1); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { dialog_->PutOption("optOrientation", 2); }), kNoSuchOption);
  EXPECT_EQ(NumberOf([&] { (void)dialog_->Text("txtNothing"); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { (void)dialog_->Text("cmbPrintDevice"); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { (void)windows_.CreateDialog("frmTdPrint"); }), kInvalidCall);
}

}  // namespace
}  // namespace td
