#include "windows/system/hidden_windows.h"

#include <string>

#include "platform/standard_failures.h"
#include "windows/system/preview_frame.h"

namespace td {

void HiddenWindows::CheckThread() const {
  if (std::this_thread::get_id() != thread_) throw WrongThreadFailure();
}

std::unique_ptr<PrintFrame> HiddenWindows::CreatePrintFrame(std::string_view name) {
  if (name != "frmTdPrint" && name != "frmTdPrint_GroupByStockArea") {
    throw Failure(kInvalidCall, "没有名为“" + std::string(name) + "”的窗口。");
  }
  return std::make_unique<PreviewFrame>(settings_, messages_, barcodeSettings_);
}

std::unique_ptr<Dialog> HiddenWindows::CreateDialog(std::string_view name) {
  throw Failure(kInvalidCall, "没有可用的窗口，无法打开“" + std::string(name) + "”。");
}

}  // namespace td
