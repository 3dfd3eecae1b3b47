#include "windows/system/print_frame.h"

#include "platform/failure.h"

namespace td {

void ReportingDocument::Report(int page) {
  if (settings_.outcome != nullptr) settings_.outcome->pages = page;
  if (settings_.onPage) settings_.onPage(page);
}

void ReportingDocument::StartDoc() {
  if (settings_.outcome != nullptr) BeginOutcome(*settings_.outcome, 0);
  PageDocument::StartDoc();
}

void ReportingDocument::NewPage() {
  const int finished = PageCount();
  PageDocument::NewPage();
  Report(finished);
}

void ReportingDocument::EndDoc() {
  PageDocument::EndDoc();
  Report(PageCount());
}

HiddenPrintFrame::HiddenPrintFrame(const FrameSettings& settings, Messages& messages,
                                   const BarcodeSettings& barcodeSettings)
    : messages_(messages),
      host_(settings, messages),
      document_(host_, settings),
      barcode_(barcodeSettings, [this](const std::string& reason) { host_.Complain(reason); }) {
  if (settings.outcome != nullptr) *settings.outcome = {};
}

void HiddenPrintFrame::ShowModal() {
  const Failure failure(kInvalidCall, "没有可用的窗口，无法打开预览。");
  messages_.ShowBox(failure.Description(), kInformationIcon);
  throw failure;
}

}  // namespace td
