// The dialog behind the logic: selections and clicks, closing, failures of what it calls back; and
// what it is to the windows and the message loop of the program that shows it.
#include <atomic>

#include "platform/standard_failures.h"
#include "shown_dialog.h"
#include "windows/api/wide_text.h"
#include "windows/controls/text_fitting.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

template <typename Action>
int NumberOf(const Action& action) {
  try {
    action();
    return 0;
  } catch (const Failure& failure) {
    return failure.Number();
  }
}

class DialogOfLogic : public ShownDialog {
 protected:
  void Show(std::function<void()> load, Use use) {
    dialog_->Connect({.Load = std::move(load),
                      .Click =
                          [this](std::string_view control) {
                            clicked_.emplace_back(control);
                            count_ = clicked_.size();
                            if (control == "cmdExit") throw Failure(7, "没有内存");
                          },
                      .Unload = [this] { ++unloads_; }});
    WhileShown(
        "frmAdjuct", [this] { dialog_->ShowModal(); }, std::move(use));
  }

  DesktopPlatform desktop_;
  std::unique_ptr<Dialog> dialog_ = desktop_.Get().windows.CreateDialog("frmAdjuct");
  Texts clicked_;                       // for the test's own thread
  std::atomic<std::size_t> count_ = 0;  // for any
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

TEST_F(DialogOfLogic, OneOptionIsOn) {
  dialog_->PutOption("optOrientation", 1);
  EXPECT_EQ(dialog_->Option("optOrientation"), 1);
  dialog_->PutOption("optOrientation", 0);
  EXPECT_EQ(dialog_->Option("optOrientation"), 0);
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
      [this](DialogUser& user) {
        const auto clicks = [this](std::size_t count) {
          return WaitFor([this, count] { return count_ == count; });
        };
        user.Choose("cmbTdBillName", "乙");
        EXPECT_TRUE(clicks(3)) << "the same entry again";
        user.Choose("cmbTdBillName", "甲");
        EXPECT_TRUE(clicks(4));
        user.Press(VK_DOWN);
        EXPECT_TRUE(clicks(5)) << "without opening the list";
        user.Click("cmdOk");
        EXPECT_TRUE(clicks(6));
      });
  EXPECT_EQ(clicked_, (Texts{"cmbTdBillName", "cmbTdBillName", "cmbTdBillName", "cmbTdBillName",
                             "cmbTdBillName", "cmdOk"}));
  EXPECT_EQ(dialog_->ListText("cmbTdBillName"), "乙");
}

TEST_F(DialogOfLogic, AnEntryIsChosenByTheMouse) {
  Show(
      [this] {
        for (const char* entry : {"甲", "乙", "丙"}) dialog_->AddItem("cmbTdBillName", entry);
      },
      [this](DialogUser& user) {
        user.ClickEntry("cmbTdBillName", 1);
        EXPECT_TRUE(WaitFor([this] { return count_ == 1; }));
        EXPECT_EQ(user.SelectedText("cmbTdBillName"), "乙");
        user.Click("cmdOk");
        EXPECT_TRUE(WaitFor([this] { return count_ == 2; }));
      });
  EXPECT_EQ(clicked_, (Texts{"cmbTdBillName", "cmdOk"})) << "told once";
}

TEST_F(DialogOfLogic, AnOpenedListHasRoomForItsLongestEntry) {
  const std::string longest =
      "\\\\打印服务器\\华东分公司二号仓库针式打印机（销售订单三联专用，请勿移动）";
  Show([&] { dialog_->AddItem("cmbTdBillName", longest); },
       [&](DialogUser& user) {
         const HWND list = user.Control("cmbTdBillName");
         const auto font = reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0));
         user.OpenList("cmbTdBillName");
         COMBOBOXINFO parts{};
         parts.cbSize = sizeof parts;
         GetComboBoxInfo(list, &parts);
         RECT opened{};
         GetClientRect(parts.hwndList, &opened);
         EXPECT_GE(opened.right, TextSize(font, ToWide(longest)).cx);
       });
}

TEST_F(DialogOfLogic, AnOpenedListThatIsLeftKeepsWhatItHad) {
  Show(
      [this] {
        dialog_->AddItem("cmbTdBillName", "甲");
        dialog_->AddItem("cmbTdBillName", "乙");
        dialog_->PutListIndex("cmbTdBillName", 0);
        clicked_.clear();
        count_ = 0;
      },
      [this](DialogUser& user) {
        for (const WPARAM leave : {WPARAM{VK_ESCAPE}, WPARAM{VK_TAB}}) {
          user.OpenList("cmbTdBillName");
          user.Press(VK_DOWN);
          EXPECT_TRUE(WaitFor([&] { return user.Selected("cmbTdBillName") == 1; }));
          user.Press(leave);
          EXPECT_TRUE(WaitFor([&] { return !user.IsOpened("cmbTdBillName"); }));
          EXPECT_TRUE(WaitFor([&] { return user.Selected("cmbTdBillName") == 0; })) << leave;
          EXPECT_TRUE(user.IsShown());
        }
        user.Click("cmdOk");
        EXPECT_TRUE(WaitFor([this] { return count_ > 0; }));
      });
  EXPECT_EQ(clicked_, (Texts{"cmdOk"}));
}

TEST_F(DialogOfLogic, AChoiceIsToldBeforeAButtonThatFollowsAtOnce) {
  Show(
      [this] {
        dialog_->AddItem("cmbTdBillName", "甲");
        dialog_->AddItem("cmbTdBillName", "乙");
      },
      [this](DialogUser& user) {
        // Both wait in the queue before either is dealt with.
        PostMessageW(user.Control("cmbTdBillName"), WM_KEYDOWN, VK_DOWN, 1);
        PostMessageW(user.Window(), WM_COMMAND,
                     static_cast<WPARAM>(GetDlgCtrlID(user.Control("cmdOk"))),
                     reinterpret_cast<LPARAM>(user.Control("cmdOk")));
        EXPECT_TRUE(WaitFor([this] { return count_ == 2; }));
      });
  EXPECT_EQ(clicked_, (Texts{"cmbTdBillName", "cmdOk"}));
}

TEST_F(DialogOfLogic, CanBeReadAfterItWasClosed) {
  Show([] {}, [](DialogUser& user) { user.Type("txtLeft", "12"); });
  EXPECT_EQ(unloads_, 1);
  EXPECT_EQ(dialog_->Text("txtLeft"), "12");
  dialog_->Unload();
  EXPECT_EQ(unloads_, 1);
}

TEST_F(DialogOfLogic, ALengthIsNotedInMillimetres) {
  Show([] {},
       [](DialogUser& user) {
         const HWND unit = GetWindow(user.Control("txtLeft"), GW_HWNDNEXT);
         const HWND note = GetWindow(unit, GW_HWNDNEXT);
         const auto shows = [&](const wchar_t* expected) {
           return WaitFor([&] {
             wchar_t text[64]{};
             SendMessageW(note, WM_GETTEXT, 64, reinterpret_cast<LPARAM>(text));
             return std::wstring_view(text) == expected;
           });
         };
         user.Type("txtLeft", "-567缇");
         EXPECT_TRUE(shows(L"≈ -10.0 毫米"));
         user.Type("txtLeft", "");
         EXPECT_TRUE(shows(L""));
       });
}

TEST_F(DialogOfLogic, ClosedByItsLoadIsNeverShown) {
  Show([this] { dialog_->Unload(); }, [](DialogUser&) { ADD_FAILURE() << "it was shown"; });
  EXPECT_EQ(unloads_, 1);
}

TEST_F(DialogOfLogic, AFailureOfAClickClosesItAndLeavesTheCall) {
  EXPECT_EQ(NumberOf([&] {
              Show([] {},
                   [](DialogUser& user) {
                     user.Click("cmdExit");
                     EXPECT_TRUE(user.WaitUntilClosed());
                   });
            }),
            7);
  EXPECT_EQ(unloads_, 1);
}

TEST_F(DialogOfLogic, AFailureOfTheLoadLeavesTheCall) {
  EXPECT_EQ(NumberOf([&] { Show([] { throw Failure(9, "坏"); }, [](DialogUser&) {}); }), 9);
}

TEST_F(DialogOfLogic, RefusesEntriesOptionsAndControlsThatItDoesNotHave) {
  EXPECT_EQ(NumberOf([&] { dialog_->PutListIndex("cmbPrintDevice", 0); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { (void)dialog_->ListItem("cmbPrintDevice", -1); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { dialog_->PutOption("optOrientation", 2); }), kNoSuchOption);
  EXPECT_EQ(NumberOf([&] { dialog_->PutOption("optOrientation", -1); }), kNoSuchOption);
  EXPECT_EQ(NumberOf([&] { (void)dialog_->Text("txtNothing"); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { (void)dialog_->Text("cmbPrintDevice"); }), kInvalidCall);
  Windows& windows = desktop_.Get().windows;
  EXPECT_EQ(NumberOf([&] { (void)windows.CreateDialog("frmTdPrint"); }), kInvalidCall);
}

// A program's own window, with a text box that has the focus.
class DialogOfProgram : public DialogOfLogic {
 protected:
  DialogOfProgram()
      : window_(CreateWindowExW(0, L"Static", L"program", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40,
                                700, 600, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)),
        box_(CreateWindowExW(0, L"Edit", L"", WS_CHILD | WS_VISIBLE, 10, 10, 100, 30, window_,
                             nullptr, GetModuleHandleW(nullptr), nullptr)) {
    SetForegroundWindow(window_);
    SetFocus(box_);
    dialog_ = desktop_.Get().windows.CreateDialog("frmAdjuct");
  }
  ~DialogOfProgram() override {
    dialog_.reset();
    DestroyWindow(window_);
  }

  HWND window_;
  HWND box_;
};

TEST_F(DialogOfProgram, TheProgramsWindowsTakeNoInputMeanwhileAndGetTheFocusBack) {
  const HWND other = CreateWindowExW(0, L"#32770", L"other", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                     50, 50, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  const HWND disabled =
      CreateWindowExW(0, L"#32770", L"disabled", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_DISABLED, 0,
                      0, 50, 50, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  SetActiveWindow(window_);
  SetFocus(box_);
  Show([] {},
       [=, this](DialogUser& user) {
         EXPECT_EQ(GetWindow(user.Window(), GW_OWNER), window_);
         EXPECT_FALSE(IsWindowEnabled(window_));
         EXPECT_FALSE(IsWindowEnabled(other));
         user.Press(VK_ESCAPE);
         EXPECT_TRUE(user.WaitUntilClosed());
       });
  EXPECT_TRUE(IsWindowEnabled(window_));
  EXPECT_TRUE(IsWindowEnabled(other));
  EXPECT_FALSE(IsWindowEnabled(disabled)) << "as it was";
  EXPECT_EQ(GetFocus(), box_);
  DestroyWindow(other);
  DestroyWindow(disabled);
}

TEST_F(DialogOfProgram, ItLiesInTheMiddleOfTheProgramsWindow) {
  Show([] {},
       [this](DialogUser& user) {
         RECT whole{};
         RECT dialog{};
         GetWindowRect(window_, &whole);
         GetWindowRect(user.Window(), &dialog);
         EXPECT_NEAR(dialog.left - whole.left, whole.right - dialog.right, 2);
         EXPECT_NEAR(dialog.top - whole.top, whole.bottom - dialog.bottom, 2);
       });
}

TEST_F(DialogOfProgram, TheProgramsMessagesAreDeliveredMeanwhile) {
  Show([] {},
       [this](DialogUser&) {
         PostMessageW(box_, WM_CHAR, L'甲', 1);
         EXPECT_TRUE(WaitFor([this] { return SendMessageW(box_, WM_GETTEXTLENGTH, 0, 0) == 1; }));
       });
}

TEST_F(DialogOfProgram, AProgramThatQuitsClosesItAndIsToldAgain) {
  const DWORD thread = GetCurrentThreadId();
  Show([] {},
       [thread](DialogUser& user) {
         PostThreadMessageW(thread, WM_QUIT, 5, 0);
         EXPECT_TRUE(user.WaitUntilClosed());
       });
  EXPECT_EQ(unloads_, 1);
  EXPECT_TRUE(IsWindowEnabled(window_));
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE && message.message != WM_QUIT) {
    DispatchMessageW(&message);
  }
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
  EXPECT_EQ(message.wParam, 5U);
}

TEST_F(DialogOfProgram, GoesDownWithTheProgramsWindow) {
  Show([] {},
       [this](DialogUser& user) {
         PostMessageW(window_, WM_CLOSE, 0, 0);
         EXPECT_TRUE(user.WaitUntilClosed());
       });
  EXPECT_EQ(unloads_, 1);
  EXPECT_EQ(NumberOf([&] { (void)dialog_->Text("txtLeft"); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { dialog_->AddItem("cmbPrintDevice", "甲"); }), kInvalidCall);
}

}  // namespace
}  // namespace td
