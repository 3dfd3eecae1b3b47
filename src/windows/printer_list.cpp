#include "windows/printer_list.h"

namespace td {

void FillPrinterList(Dialog& dialog, const Guard& guard) {
  guard.Step([&] { dialog.AddItem(controls::kPrinterList, "windows默认打印机"); });
  guard.Step([&] { dialog.AddItem(controls::kPrinterList, "--------------------"); });
  int count = 0;
  guard.Step([&] { count = dialog.Surface().DeviceCount(); });
  for (int i = 0; i < count; ++i) {
    guard.Step([&] { dialog.AddItem(controls::kPrinterList, dialog.Surface().DeviceName(i)); });
  }
}

}  // namespace td
