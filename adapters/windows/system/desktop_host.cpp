#include "windows/system/desktop_host.h"

#include "page_document/page_document.h"
#include "platform/failure.h"
#include "print_calls/printers.h"
#include "windows/controls/visual_styles.h"
#include "windows/preview/page_setup_dialog.h"
#include "windows/printing/document_printing.h"
#include "windows/printing/print_dialog.h"
#include "windows/system/message_boxes.h"

namespace td {

// A look at the queue, however it ends, tells the system that the window isn't hung: else it would
// soon show one that "does not respond" in its place, and offer to end the program. It lets
// messages of other threads in.
void DesktopHost::PageCompleted() {
  if (window_ == nullptr) return;
  MSG message{};
  PeekMessageW(&message, window_, WM_APP, WM_APP, PM_NOREMOVE);
}

void DesktopHost::PrintTo(PageDocument& document, bool withDialog, DocumentOutcome& outcome) {
  PrintChoice choice;
  choice.printer = PrinterOf(document);
  if (withDialog) {
    if (!HasVisibleDesktop()) {
      throw Failure(kInvalidCall, "没有可用的窗口，无法打开打印对话框。");
    }
    const WindowMaking making;
    auto answer = AskForPrinter(choice.printer, document.PageCount(), window_);
    if (!answer) {
      outcome.delivery = Delivery::kCancelled;
      return;
    }
    choice = std::move(*answer);
  }
  choice.title = ProgramName();
  if (choice.printer.empty()) FailWithoutPrinter();
  RequireChosenPages(choice.pages);
  outcome.printer = choice.printer;
  choice.correction = CorrectionOf(document, choice.printer);
  const bool isPrinted = PrintDocument(document.Pages(), choice, outcome.jobs,
                                       [this](const std::string& words) { Complain(words); });
  outcome.delivery = isPrinted ? Delivery::kPrinter : Delivery::kCancelled;
}

std::optional<std::string> DesktopHost::AskForPageSetup(PageDocument& document) {
  if (!HasVisibleDesktop()) {
    throw Failure(kInvalidCall, "没有可用的窗口，无法打开页面设置。");
  }
  PageSetupDialog dialog(
      document, PrinterOf(document),
      {.ofNewDocument = [this] { return DefaultSheet(); }, .ofPrinter = OwnSheet});
  if (!dialog.Ask()) return std::nullopt;
  dialog.Apply();
  return dialog.ChosenPrinter();
}

}  // namespace td
