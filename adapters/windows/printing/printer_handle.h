// Owner of an open printer.
#pragma once

#include <memory>
#include <string>

#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"

// Behind the system's other headers.
#include <winspool.h>

namespace td {

struct PrinterCloser {
  using pointer = HANDLE;
  void operator()(HANDLE printer) const { ClosePrinter(printer); }
};
using PrinterHandle = std::unique_ptr<HANDLE, PrinterCloser>;

// Null if there is no such printer. The system wants the name where it could change it.
[[nodiscard]] inline PrinterHandle OpenPrinterOf(const std::string& printer) {
  std::wstring name = ToWide(printer);
  HANDLE opened = nullptr;
  return PrinterHandle(OpenPrinterW(name.data(), &opened, nullptr) == FALSE ? nullptr : opened);
}

}  // namespace td
