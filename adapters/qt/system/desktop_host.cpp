#include "qt/system/desktop_host.h"

#include "page_document/page_document.h"
#include "print_calls/device_failure.h"
#include "qt/preview/page_setup_dialog.h"
#include "qt/system/application.h"
#include "qt/system/document_printing.h"
#include "qt/system/printers.h"

namespace td {

void DesktopHost::PrintTo(PageDocument& document, bool withDialog, DocumentOutcome& outcome) {
  PrintChoice choice;
  choice.printer = PrinterOf(document);
  if (withDialog) {
    if (!HasWindowSystem()) {
      throw DeviceFailure(kInvalidCall, "没有可用的显示，无法打开打印对话框。");
    }
    const auto answer = AskForPrinter(choice.printer, document.PageCount(), window_);
    if (!answer) {
      outcome.delivery = Delivery::kCancelled;
      return;
    }
    choice = *answer;
  }
  if (choice.printer.empty() && choice.pdfFile.empty()) {
    RequirePrintingSystem();
    FailWithoutPrinter();
  }
  RequireChosenPages(choice.pages);
  const bool isForFile = !choice.pdfFile.empty();
  PageCorrection correction;
  if (isForFile) {
    outcome.file = choice.pdfFile;
  } else {
    outcome.printer = choice.printer;
    correction = CorrectionOf(document, choice.printer);
  }
  PrintDocument(document, choice, &outcome.jobs, correction);
  outcome.delivery = isForFile ? Delivery::kFile : Delivery::kPrinter;
}

std::optional<std::string> DesktopHost::AskForPageSetup(PageDocument& document) {
  if (!HasWindowSystem()) {
    throw DeviceFailure(kInvalidCall, "没有可用的显示，无法打开页面设置。");
  }
  PageSetupDialog dialog(
      document, PrinterOf(document),
      {.ofNewDocument = [this] { return DefaultSheet(); }, .ofPrinter = OwnSheet}, window_);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  dialog.Apply();
  return dialog.ChosenPrinter();
}

}  // namespace td
