#include "test_printer.h"

#include <algorithm>

#include "page_document/drawing.h"
#include "windows/printing/printer_handle.h"

namespace td {

TestPrinter& ThePrinter() {
  static TestPrinter printer;
  return printer;
}

PaperExtent Millimetres(double width, double height) {
  return {width * kTwipsPerMillimetre, height * kTwipsPerMillimetre};
}

namespace {

int TellForms(WORD capability, LPWSTR output) {
  const std::vector<Form>& forms = ThePrinter().forms;
  for (std::size_t i = 0; output != nullptr && i < forms.size(); ++i) {
    if (capability == DC_PAPERS) {
      reinterpret_cast<WORD*>(output)[i] = static_cast<WORD>(forms[i].number);
    } else {
      reinterpret_cast<POINT*>(output)[i] = {Tenths(forms[i].sheet.width),
                                             Tenths(forms[i].sheet.height)};
    }
  }
  return static_cast<int>(forms.size());
}

// Those of servers are told of only where they are asked for.
std::vector<PRINTER_INFO_2W> InstalledPrinters(bool withThoseOfServers) {
  std::vector<PRINTER_INFO_2W> told;
  for (InstalledPrinter& printer : ThePrinter().installed) {
    if (printer.isOfServer && !withThoseOfServers) continue;
    told.emplace_back();
    told.back().pPrinterName = printer.name.data();
    told.back().pDriverName = printer.driver.data();
  }
  return told;
}

}  // namespace
}  // namespace td

extern "C" {

BOOL WINAPI EnumPrintersW(DWORD kinds, LPWSTR /*server*/, DWORD level, LPBYTE list, DWORD size,
                          LPDWORD needed, LPDWORD count) {
  if (level != 2) {
    SetLastError(ERROR_INVALID_LEVEL);
    return FALSE;
  }
  const auto told = td::InstalledPrinters((kinds & PRINTER_ENUM_CONNECTIONS) != 0);
  *needed = static_cast<DWORD>(told.size() * sizeof(PRINTER_INFO_2W));
  if (size < *needed) {
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return FALSE;
  }
  std::ranges::copy(told, reinterpret_cast<PRINTER_INFO_2W*>(list));
  *count = static_cast<DWORD>(told.size());
  return TRUE;
}

HDC WINAPI CreateDCW(LPCWSTR /*system*/, LPCWSTR /*name*/, LPCWSTR /*port*/,
                     const DEVMODEW* /*mode*/) {
  return CreateCompatibleDC(nullptr);
}

int WINAPI StartDocW(HDC /*device*/, const DOCINFOW* /*document*/) {
  SetLastError(td::ThePrinter().refusal);
  return 0;
}

BOOL WINAPI OpenPrinterW(LPWSTR /*name*/, LPHANDLE opened, LPPRINTER_DEFAULTSW defaults) {
  const bool manages =
      defaults != nullptr && (defaults->DesiredAccess & PRINTER_ACCESS_ADMINISTER) != 0;
  if (manages && !td::ThePrinter().mayBeManaged) {
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
  }
  ++td::ThePrinter().open;
  *opened = &td::ThePrinter();
  return TRUE;
}

BOOL WINAPI ClosePrinter(HANDLE /*opened*/) {
  --td::ThePrinter().open;
  return TRUE;
}

BOOL WINAPI AddFormW(HANDLE /*opened*/, DWORD /*level*/, LPBYTE record) {
  constexpr std::int16_t kFirstNumber = 300;
  td::TestPrinter& printer = td::ThePrinter();
  const auto* form = reinterpret_cast<const FORM_INFO_1W*>(record);
  if (std::ranges::count(printer.added, form->pName, &td::AddedForm::name) > 0) {
    SetLastError(ERROR_FILE_EXISTS);
    return FALSE;
  }
  printer.added.push_back({form->Flags, form->pName, form->Size, form->ImageableArea});
  if (printer.showsAddedForms) {
    const auto number = static_cast<std::int16_t>(kFirstNumber + printer.added.size() - 1);
    printer.forms.push_back(
        {number, td::Millimetres(form->Size.cx / 1000.0, form->Size.cy / 1000.0)});
  }
  return TRUE;
}

int WINAPI DeviceCapabilitiesW(LPCWSTR /*name*/, LPCWSTR /*port*/, WORD capability, LPWSTR output,
                               const DEVMODEW* /*mode*/) {
  switch (capability) {
    case DC_PAPERS:
    case DC_PAPERSIZE:
      return td::TellForms(capability, output);
    case DC_COPIES:
      return td::ThePrinter().mostCopies;
    case DC_COLLATE:
      return td::ThePrinter().collates ? 1 : 0;
    default:
      return -1;
  }
}

// A driver that makes several copies takes no more of them than it makes; any other leaves the
// number as it is.
LONG WINAPI DocumentPropertiesW(HWND /*owner*/, HANDLE /*opened*/, LPWSTR /*name*/,
                                DEVMODEW* answer, DEVMODEW* wanted, DWORD directions) {
  if (directions == 0) return sizeof(DEVMODEW);
  const td::TestPrinter& printer = td::ThePrinter();
  *answer = (directions & DM_IN_BUFFER) != 0 ? *wanted : printer.settings;
  if (printer.mostCopies > 1) {
    answer->dmCopies = std::min(answer->dmCopies, static_cast<short>(printer.mostCopies));
  }
  return IDOK;
}

}  // extern "C"
