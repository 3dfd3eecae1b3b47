#include "qt/system/qt_windows.h"

#include "platform/failure.h"
#include "qt/system/print_frame.h"

namespace td {

std::unique_ptr<PrintFrame> QtWindows::CreatePrintFrame(std::string_view name) {
  if (name != "frmTdPrint" && name != "frmTdPrint_GroupByStockArea") {
    throw Failure(kInvalidCall, "没有名为“" + std::string(name) + "”的窗口。");
  }
  return std::make_unique<QtPrintFrame>(settings_, messages_, barcodeSettings_);
}

}  // namespace td
