// The system's printer dialog, on the queues of scripts/cups-for-tests.sh.
#include "windows/printing/print_dialog.h"

#include "platform/failure.h"
#include "shown_preview.h"

// Behind the system's other headers.
#include <dlgs.h>

namespace td {
namespace {

constexpr const char* kPrinter = "QbTd-PDF";

BOOL CALLBACK FindDialog(HWND window, LPARAM result) {
  const bool isOpen = IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE;
  if (!isOpen || GetDlgItem(window, IDOK) == nullptr) return TRUE;
  *reinterpret_cast<HWND*>(result) = window;
  return FALSE;
}

// The uppermost dialog of the thread.
HWND Dialog() {
  HWND found = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), FindDialog, reinterpret_cast<LPARAM>(&found));
  return found;
}

// Asks, and answers by a button after `use`.
std::optional<PrintChoice> Ask(const std::string& printer, int pages, int button,
                               const std::function<void(HWND)>& use = {}) {
  WhenIdle([=] {
    const HWND dialog = Dialog();
    if (dialog == nullptr) {
      ADD_FAILURE() << "there is no dialog";
      return;
    }
    TakePicture(dialog, "print-dialog-" + std::to_string(GetDpiForWindow(dialog)));
    if (use) use(dialog);
    PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
  });
  return AskForPrinter(printer, pages, nullptr);
}

TEST(PrintDialog, AnswersWithThePrinterThatItWasOpenedWith) {
  const auto choice = Ask(kPrinter, 5, IDOK);
  ASSERT_TRUE(choice.has_value());
  EXPECT_EQ(choice->printer, kPrinter);
  EXPECT_FALSE(choice->pages.has_value());
  EXPECT_EQ(choice->options.copies, 1);
  EXPECT_FALSE(choice->options.settings.empty());
}

TEST(PrintDialog, PrintsNothingWhenItIsCancelled) {
  EXPECT_EQ(Ask(kPrinter, 5, IDCANCEL), std::nullopt);
}

TEST(PrintDialog, PrintsTheRangeThatTheUserWants) {
  const auto choice = Ask(kPrinter, 5, IDOK, [](HWND dialog) {
    SendDlgItemMessageW(dialog, rad3, BM_CLICK, 0, 0);
    SetDlgItemInt(dialog, edt1, 2, FALSE);
    SetDlgItemInt(dialog, edt2, 4, FALSE);
  });
  ASSERT_TRUE(choice.has_value());
  EXPECT_EQ(choice->pages, (std::vector<int>{2, 3, 4}));
}

TEST(PrintDialog, PrintsTheCopiesThatTheUserWants) {
  const auto choice =
      Ask(kPrinter, 5, IDOK, [](HWND dialog) { SetDlgItemInt(dialog, edt3, 3, FALSE); });
  ASSERT_TRUE(choice.has_value());
  EXPECT_EQ(choice->options.copies, 3);
}

TEST(PrintDialog, BeginsWithTheDefaultPrinterInThePlaceOfOneThatHasGone) {
  const auto choice = Ask("没有的打印机", 1, IDOK);
  ASSERT_TRUE(choice.has_value());
  EXPECT_FALSE(choice->printer.empty());
}

class PrintedPreview : public ShownPreview {};

TEST_F(PrintedPreview, PrintsWhatTheUserConfirms) {
  DocumentOutcome outcome;
  FrameSettings settings;
  settings.printer = kPrinter;
  settings.outcome = &outcome;
  NativePrintFrame frame(std::make_shared<const FrameSettings>(settings), messages_, {});
  frame.Surface().StartDoc();
  frame.Surface().EndDoc();
  for (const auto& [button, delivery] :
       {std::pair(IDCANCEL, Delivery::kCancelled), std::pair(IDOK, Delivery::kPrinter)}) {
    WhenIdle([button] { PostMessageW(Dialog(), WM_COMMAND, static_cast<WPARAM>(button), 0); });
    frame.Surface().PrintDoc(true);
    EXPECT_EQ(outcome.delivery, delivery);
  }
  EXPECT_EQ(outcome.printer, kPrinter);
  EXPECT_EQ(outcome.jobs.size(), 1U);
}

}  // namespace
}  // namespace td
