#include "windows/system/desktop_host.h"

#include "page_document/page_document.h"
#include "page_outputs/export_file.h"
#include "platform/standard_failures.h"
#include "windows/printing/document_printing.h"
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

void DesktopHost::Print(PageDocument& document, bool withDialog) {
  Deliver(settings_, document,
          [&](DocumentOutcome& outcome) { PrintTo(document, withDialog, outcome); });
}

void DesktopHost::PrintTo(PageDocument& document, bool withDialog, DocumentOutcome& outcome) {
  if (withDialog) throw Failure(kInvalidCall, "没有可用的窗口，无法打开打印对话框。");
  PrintChoice choice;
  choice.printer = settings_.printer.empty() ? document.Device() : settings_.printer;
  choice.title = ProgramName();
  if (choice.printer.empty()) throw Failure(kDeviceIo, "本机没有安装打印机，无法打印。");
  outcome.printer = choice.printer;
  const bool isPrinted = PrintDocument(document.Pages(), choice, outcome.jobs);
  outcome.delivery = isPrinted ? Delivery::kPrinter : Delivery::kCancelled;
}

bool DesktopHost::ShowPageSetup(PageDocument&) {
  throw Failure(kInvalidCall, "没有可用的窗口，无法打开页面设置。");
}

void DesktopHost::Export(PageDocument& document, const std::string& file, std::int32_t format) {
  try {
    ExportDocument(document, file, format, settings_.stateDirectory);
  } catch (const Failure& failure) {
    messages_.ShowBox(failure.Description(), kInformationIcon);
  }
}

void DesktopHost::Complain(const std::string& text) {
  complaints_.Tell(text);
}

}  // namespace td
