#include "qt/system/print_frame.h"

#include "platform/failure.h"
#include "qt/system/application.h"

namespace td {

void ReportingDocument::Report(int page) {
  if (settings_.onPage) settings_.onPage(page);
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

QtPrintFrame::QtPrintFrame(const FrameSettings& settings, Messages& messages,
                           const BarcodeSettings& barcodeSettings)
    : host_(settings, messages), document_(host_, settings), barcode_(barcodeSettings) {}

void QtPrintFrame::ShowModal() {
  throw Failure(kInvalidCall, "没有可用的显示，无法打开预览窗口。");
}

void QtPrintFrame::Unload() {}

void QtPrintFrame::EnableButton(std::string_view key, bool enabled) {
  enabledButtons_.insert_or_assign(std::string(key), enabled);
}

}  // namespace td
