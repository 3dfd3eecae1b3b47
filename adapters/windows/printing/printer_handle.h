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

// Null if there is no such printer, or if the user may not do that with it.
[[nodiscard]] inline PrinterHandle OpenPrinterOf(const std::string& printer,
                                                 DWORD rights = PRINTER_ACCESS_USE) {
  std::wstring name = ToWide(printer);  // the system wants it where it could change it
  PRINTER_DEFAULTSW wanted{nullptr, nullptr, rights};
  HANDLE opened = nullptr;
  return PrinterHandle(OpenPrinterW(name.data(), &opened, &wanted) == FALSE ? nullptr : opened);
}

}  // namespace td
