#include "print_calls/print_host.h"

#include "calibration/calibrated_pages.h"
#include "page_document/page_document.h"
#include "page_outputs/export_file.h"
#include "page_outputs/text_measures.h"
#include "print_calls/device_failure.h"
#include "print_calls/printers.h"

namespace td {

std::vector<std::string> PrintHost::Devices() {
  return PrinterNames();
}

std::string PrintHost::DefaultDevice() {
  return DefaultPrinter();
}

bool PrintHost::HasDevice(const std::string& name) {
  return HasPrinter(name);
}

std::optional<PaperExtent> PrintHost::DefaultSheet() {
  return OwnSheet(settings_.printer.empty() ? DefaultPrinter() : settings_.printer);
}

double PrintHost::LineHeight(const TextLine& line) {
  return td::LineHeight(line);
}

double PrintHost::LineWidth(const TextLine& line) {
  return td::LineWidth(line);
}

std::string PrintHost::PrinterOf(PageDocument& document) const {
  if (settings_.printer.empty()) return document.Device();
  return chosenPrinter_.empty() ? settings_.printer : chosenPrinter_;
}

void PrintHost::Print(PageDocument& document, bool withDialog) {
  Deliver(settings_, document,
          [&](DocumentOutcome& outcome) { PrintTo(document, withDialog, outcome); });
}

bool PrintHost::ShowPageSetup(PageDocument& document) {
  const std::optional<std::string> chosen = AskForPageSetup(document);
  if (!chosen) return false;
  if (!chosen->empty()) chosenPrinter_ = *chosen;
  return true;
}

PageCorrection PrintHost::CorrectionOf(PageDocument& document, const std::string& printer) {
  if (!settings_.calibrated) return {};
  return CorrectionFor(printer, document.Pages(), TurnOf,
                       [this](const std::string& text) { Complain(text); });
}

void PrintHost::Export(PageDocument& document, const std::string& file, std::int32_t format) {
  try {
    ExportDocument(document, file, format, settings_.stateDirectory);
  } catch (const Failure& failure) {
    messages_.ShowBox(failure.Description(), kInformationIcon);
  }
}

void PrintHost::PreviewChanged(PageDocument& /*document*/) {
  if (viewer_.previewChanged) viewer_.previewChanged();
}

void PrintHost::PointerChanged(std::int32_t shape) {
  if (viewer_.pointerChanged) viewer_.pointerChanged(shape);
}

void PrintHost::Complain(const std::string& text) {
  complaints_.Tell(text);
}

void RequireChosenPages(const std::optional<std::vector<int>>& pages) {
  if (pages && pages->empty()) {
    throw DeviceFailure(kInvalidCall, "所选的范围里没有要打印的页。");
  }
}

void FailWithoutPrinter() {
  throw DeviceFailure(kDeviceIo, "本机没有安装打印机，无法打印。");
}

}  // namespace td
