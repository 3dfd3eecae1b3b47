// Keys and clicks that come while a run holds the window up.
#include "shown_preview.h"

namespace td {
namespace {

class PreviewDuringARun : public ShownPreview {
 protected:
  void PutBusy(bool isBusy) {
    for (const char* key : {"print", "zoom", "exit"}) frame_.EnableButton(key, !isBusy);
  }
};

TEST_F(PreviewDuringARun, InputForDisabledButtonsPressesNothing) {
  Show([] {}, {[this] {
                 PutBusy(true);
                 for (const char* key : {"print", "zoom", "exit"}) PostClick(Button(key));
                 PostKey('P', true);
                 PutBusy(false);
               },
               [this] {
                 PutBusy(true);
                 PostKey(VK_ADD, true);
                 PutBusy(false);
               },
               [this] {
                 PutBusy(true);
                 PostKey(VK_ESCAPE);
                 PutBusy(false);
                 PostClick(Button("previouspage"));  // behind whatever has been kept
               },
               [this] { EXPECT_TRUE(IsWindowVisible(Window().Handle())); }});
  EXPECT_EQ(pressed_, std::vector<std::string>{"previouspage"});
}

TEST_F(PreviewDuringARun, InputForEnabledButtonsIsActedUponWhenTheRunHasEnded) {
  Show([] {}, {[this] {
                 PutBusy(true);
                 PostClick(Button("pageset"));
                 PostClick(Button("print"));
                 PostClick(Button("nextpage"));
                 PostKey(VK_NEXT);
                 PutBusy(false);
                 EXPECT_TRUE(pressed_.empty()) << "the run is still at work";
                 PostClick(Button("previouspage"));  // it comes later, and stays behind the others
               },
               [] {}});
  EXPECT_EQ(pressed_,
            (std::vector<std::string>{"pageset", "nextpage", "nextpage", "previouspage"}));
}

TEST_F(PreviewDuringARun, AKeyIsWhatItWasWhenItWasTyped) {
  Show([] {}, {[this] {
                 PutBusy(true);
                 PostKey('T', true);
                 PutBusy(false);
                 LetGoOfKeys();
               },
               [] {}});
  EXPECT_EQ(pressed_, std::vector<std::string>{"adjuct"});
}

TEST_F(PreviewDuringARun, AClickWhoseSecondHalfComesAfterTheRunIsWhole) {
  Show([] {}, {[this] {
                 PutBusy(true);
                 PostMessageW(Button("nextpage"), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
                 PutBusy(false);
                 PostMessageW(Button("nextpage"), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
               },
               [] {}});
  EXPECT_EQ(pressed_, std::vector<std::string>{"nextpage"});
}

TEST_F(PreviewDuringARun, ADialogKeepsTheRestOfTheInputFromTheWindow) {
  Show([] {},
       {[this] {
          frame_.Connect({.Load = nullptr, .Activate = nullptr, .ButtonPressed = [this](auto key) {
                            pressed_.emplace_back(key);
                            EnableWindow(Window().Handle(), FALSE);  // as any modal dialog does
                            WhenIdle([this] { EnableWindow(Window().Handle(), TRUE); });
                          }});
          PutBusy(true);
          PostClick(Button("adjuct"));
          PostClick(Button("nextpage"));
          PutBusy(false);
        },
        [] {}, [] {}});
  EXPECT_EQ(pressed_, std::vector<std::string>{"adjuct"});
}

TEST_F(PreviewDuringARun, AWishToEndTheProgramIsLeftToItsLoops) {
  constexpr int kExitCode = 7;
  Show([] {}, {[this] {
         PutBusy(true);
         PostQuitMessage(kExitCode);
         PutBusy(false);
       }});
  MSG message{};
  ASSERT_EQ(GetMessageW(&message, nullptr, 0, 0), 0);
  EXPECT_EQ(message.wParam, static_cast<WPARAM>(kExitCode));
}

TEST_F(PreviewDuringARun, TheWheelIsForNothing) {
  Show([this] { MakeDocument(1); }, {[this] {
                                       Resize(700, 300);
                                       PutBusy(true);
                                       PostMessageW(View().Handle(), WM_MOUSEWHEEL,
                                                    MAKEWPARAM(0, -WHEEL_DELTA), 0);
                                       PutBusy(false);
                                     },
                                     [this] { EXPECT_EQ(Scrolled(SB_VERT), 0); }});
}

TEST_F(PreviewDuringARun, TheCloseBoxClosesTheWindowAtOnce) {
  bool wasVisible = true;
  frame_.Connect({.Load = nullptr,
                  .Activate =
                      [&] {
                        if (frame_.Window() == nullptr) return;
                        frame_.EnableButton("print", false);
                        PostMessageW(Window().Handle(), WM_SYSCOMMAND, SC_CLOSE, 0);
                        frame_.EnableButton("print", true);
                        wasVisible = IsWindowVisible(Window().Handle()) != FALSE;
                      },
                  .ButtonPressed = nullptr});
  frame_.ShowModal();
  EXPECT_FALSE(wasVisible);
}

}  // namespace
}  // namespace td
