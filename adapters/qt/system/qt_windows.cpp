#include "qt/system/qt_windows.h"

#include "platform/standard_failures.h"
#include "qt/system/print_frame.h"
#include "qt/system/qt_dialog.h"

namespace td {
namespace {

Failure NoSuchWindow(std::string_view name) {
  return {kInvalidCall, "没有名为“" + std::string(name) + "”的窗口。"};
}

}  // namespace

void QtWindows::CheckThread() const {
  if (std::this_thread::get_id() != thread_) throw WrongThreadFailure();
}

std::unique_ptr<PrintFrame> QtWindows::CreatePrintFrame(std::string_view name) {
  if (name != "frmTdPrint" && name != "frmTdPrint_GroupByStockArea") {
    throw NoSuchWindow(name);
  }
  return std::make_unique<QtPrintFrame>(settings_, messages_, barcodeSettings_);
}

std::unique_ptr<Dialog> QtWindows::CreateDialog(std::string_view name) {
  const DialogContents* contents = FindDialogContents(name);
  if (contents == nullptr) throw NoSuchWindow(name);
  return std::make_unique<QtDialog>(*contents, settings_, messages_);
}

}  // namespace td
