#include "windows/printing/printers.h"

#include <algorithm>
#include <cstddef>

#include "windows/api/wide_text.h"
#include "windows/printing/driver_settings.h"

// Behind the system's other headers.
#include <winspool.h>

namespace td {

std::vector<std::string> PrinterNames() {
  constexpr DWORD kKinds = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
  constexpr DWORD kLevel = 4;  // the only one that asks no other machine
  DWORD size = 0;
  DWORD count = 0;
  std::vector<std::byte> list;
  // The list may grow between being measured and being read.
  while (EnumPrintersW(kKinds, nullptr, kLevel, reinterpret_cast<BYTE*>(list.data()),
                       static_cast<DWORD>(list.size()), &size, &count) == FALSE) {
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return {};
    list.resize(size);
  }
  std::vector<std::string> names;
  const auto* printers = reinterpret_cast<const PRINTER_INFO_4W*>(list.data());
  for (DWORD i = 0; i < count; ++i) names.push_back(FromWide(printers[i].pPrinterName));
  return names;
}

std::string DefaultPrinter() {
  DWORD length = 0;
  GetDefaultPrinterW(nullptr, &length);
  std::wstring name(length, L'\0');
  if (length > 0 && GetDefaultPrinterW(name.data(), &length) != FALSE) return FromWide(name.data());
  const std::vector<std::string> names = PrinterNames();
  return names.empty() ? std::string() : names.front();
}

bool HasPrinter(const std::string& name) {
  return std::ranges::count(PrinterNames(), name) > 0;
}

std::optional<PaperExtent> OwnSheet(const std::string& printer) {
  if (printer.empty()) return std::nullopt;
  const DriverSettings settings(printer);
  return settings.IsKnown() ? settings.Sheet() : std::nullopt;
}

}  // namespace td
