#include "windows/system/native_windows.h"

#include <string>

#include "platform/standard_failures.h"
#include "windows/system/print_frame.h"
#include "windows/system/windows_dialog.h"

namespace td {
namespace {

Failure NoSuchWindow(std::string_view name) {
  return {kInvalidCall, "没有名为“" + std::string(name) + "”的窗口。"};
}

}  // namespace

void NativeWindows::CheckThread() const {
  if (std::this_thread::get_id() != thread_) throw WrongThreadFailure();
}

std::unique_ptr<PrintFrame> NativeWindows::CreatePrintFrame(std::string_view name) {
  if (name != "frmTdPrint" && name != "frmTdPrint_GroupByStockArea") {
    throw NoSuchWindow(name);
  }
  return std::make_unique<NativePrintFrame>(settings_, messages_, barcodeSettings_);
}

std::unique_ptr<Dialog> NativeWindows::CreateDialog(std::string_view name) {
  const DialogContents* contents = FindDialogContents(name);
  if (contents == nullptr) throw NoSuchWindow(name);
  return std::make_unique<WindowsDialog>(*contents, settings_, messages_);
}

}  // namespace td
