#include "windows/system/desktop_host.h"

#include "calibration/calibrated_pages.h"
#include "page_document/page_document.h"
#include "page_outputs/export_file.h"
#include "platform/standard_failures.h"
#include "windows/controls/visual_styles.h"
#include "windows/preview/page_setup_dialog.h"
#include "windows/printing/document_printing.h"
#include "windows/printing/page_turn.h"
#include "windows/printing/print_dialog.h"
#include "windows/printing/printers.h"
#include "windows/render/text_layout.h"
#include "windows/system/message_boxes.h"

namespace td {

std::vector<std::string> DesktopHost::Devices() {
  return PrinterNames();
}

std::string DesktopHost::DefaultDevice() {
  return DefaultPrinter();
}

bool DesktopHost::HasDevice(const std::string& name) {
  return HasPrinter(name);
}

std::optional<PaperExtent> DesktopHost::DefaultSheet() {
  return OwnSheet(settings_.printer.empty() ? DefaultPrinter() : settings_.printer);
}

double DesktopHost::LineHeight(const TextLine& line) {
  return td::LineHeight(line);
}

double DesktopHost::LineWidth(const TextLine& line) {
  return td::LineWidth(line);
}

std::string DesktopHost::PrinterOf(PageDocument& document) const {
  if (settings_.printer.empty()) return document.Device();
  return chosenPrinter_.empty() ? settings_.printer : chosenPrinter_;
}

void DesktopHost::Print(PageDocument& document, bool withDialog) {
  Deliver(settings_, document,
          [&](DocumentOutcome& outcome) { PrintTo(document, withDialog, outcome); });
}

void DesktopHost::PrintTo(PageDocument& document, bool withDialog, DocumentOutcome& outcome) {
  PrintChoice choice;
  choice.printer = PrinterOf(document);
  if (withDialog) {
    if (!HasVisibleDesktop()) {
      throw Failure(kInvalidCall, "没有可用的窗口，无法打开打印对话框。");
    }
    const WindowMaking making;
    auto answer = AskForPrinter(choice.printer, document.PageCount(), viewer_.window);
    if (!answer) {
      outcome.delivery = Delivery::kCancelled;
      return;
    }
    choice = std::move(*answer);
  }
  choice.title = ProgramName();
  if (choice.printer.empty()) throw Failure(kDeviceIo, "本机没有安装打印机，无法打印。");
  if (choice.pages && choice.pages->empty()) {
    throw Failure(kInvalidCall, "所选的范围里没有要打印的页。");
  }
  outcome.printer = choice.printer;
  const auto complain = [this](const std::string& words) { Complain(words); };
  if (settings_.calibrated) {
    choice.correction = CorrectionFor(choice.printer, document.Pages(), TurnOf, complain);
  }
  const bool isPrinted = PrintDocument(document.Pages(), choice, outcome.jobs, complain);
  outcome.delivery = isPrinted ? Delivery::kPrinter : Delivery::kCancelled;
}

bool DesktopHost::ShowPageSetup(PageDocument& document) {
  if (!HasVisibleDesktop()) {
    throw Failure(kInvalidCall, "没有可用的窗口，无法打开页面设置。");
  }
  PageSetupDialog dialog(
      document, PrinterOf(document),
      {.ofNewDocument = [this] { return DefaultSheet(); }, .ofPrinter = OwnSheet});
  if (!dialog.Ask()) return false;
  dialog.Apply();
  if (!dialog.ChosenPrinter().empty()) chosenPrinter_ = dialog.ChosenPrinter();
  return true;
}

void DesktopHost::Export(PageDocument& document, const std::string& file, std::int32_t format) {
  try {
    ExportDocument(document, file, format, settings_.stateDirectory);
  } catch (const Failure& failure) {
    messages_.ShowBox(failure.Description(), kInformationIcon);
  }
}

void DesktopHost::PreviewChanged(PageDocument&) {
  if (viewer_.previewChanged) viewer_.previewChanged();
}

void DesktopHost::PointerChanged(std::int32_t shape) {
  if (viewer_.pointerChanged) viewer_.pointerChanged(shape);
}

void DesktopHost::Complain(const std::string& text) {
  complaints_.Tell(text);
}

}  // namespace td
