#include "windows/system/desktop_host.h"

#include "page_document/page_document.h"
#include "platform/standard_failures.h"
#include "windows/controls/visual_styles.h"
#include "windows/preview/page_setup_dialog.h"
#include "windows/printing/document_printing.h"
#include "windows/printing/print_dialog.h"
#include "windows/printing/printers.h"
#include "windows/render/html_output.h"
#include "windows/render/text_layout.h"
#include "windows/system/export_folder.h"
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
  DocumentOutcome untold;
  DocumentOutcome& outcome = settings_.outcome != nullptr ? *settings_.outcome : untold;
  BeginOutcome(outcome, document.PageCount());
  try {
    Deliver(document, withDialog, outcome);
  } catch (const std::exception& failure) {
    outcome.delivery = Delivery::kRefused;
    outcome.reason = failure.what();
    throw;
  }
  if (outcome.IsDelivered() && settings_.onPrinted) settings_.onPrinted();
}

void DesktopHost::Deliver(PageDocument& document, bool withDialog, DocumentOutcome& outcome) {
  if (settings_.documentSink) {
    settings_.documentSink(document);
    outcome.delivery = Delivery::kSink;
    return;
  }
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
  outcome.printer = choice.printer;
  const bool isPrinted = PrintDocument(document.Pages(), choice, outcome.jobs);
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
    if (format != kExportHtml) {
      throw Failure(kInvalidCall, "不支持的导出格式：" + std::to_string(format));
    }
    const std::string folder =
        settings_.stateDirectory.empty() ? DefaultStateFolder() : settings_.stateDirectory;
    if (folder.empty()) throw Failure(kPathNotFound, "找不到用户的文件夹，无法保存导出文件。");
    const std::string name = FileNameOf(file);
    WritePrivateFile(folder, name,
                     [&](const ByteSink& sink) { StreamHtml(document.Pages(), name, sink); });
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
  if (!complaints_.insert(text).second) return;
  if (settings_.onComplaint) {
    settings_.onComplaint(text);
  } else {
    WriteComplaint("QbTdPrinter: " + text);
  }
}

}  // namespace td
