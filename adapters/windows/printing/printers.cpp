#include "windows/printing/printers.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "windows/api/wide_text.h"
#include "windows/printing/driver_settings.h"
#include "windows/printing/printer_handle.h"

// Behind the system's other headers.
#include <winspool.h>

namespace td {

namespace {

// What the system tells of all printers of some kinds, in the structures of a level.
class PrinterList {
 public:
  PrinterList(DWORD kinds, DWORD level) {
    DWORD size = 0;
    // The list may grow between being measured and being read.
    while (EnumPrintersW(kinds, nullptr, level, reinterpret_cast<BYTE*>(list_.data()),
                         static_cast<DWORD>(list_.size()), &size, &count_) == FALSE) {
      count_ = 0;
      if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return;
      list_.resize(size);
    }
  }

  template <class Printer>
  [[nodiscard]] std::span<const Printer> As() const {
    return {reinterpret_cast<const Printer*>(list_.data()), count_};
  }

 private:
  std::vector<std::byte> list_;
  DWORD count_ = 0;
};

// What changes while the printing system is at work on a job.
struct JobState {
  DWORD status = 0;
  DWORD pages = 0;
  DWORD printedPages = 0;

  bool operator==(const JobState&) const = default;
};

// Nothing if there is no such job any more.
std::optional<JobState> StateOf(HANDLE printer, int number) {
  constexpr DWORD kLevel = 1;
  const auto job = static_cast<DWORD>(number);
  std::vector<std::byte> told;
  DWORD size = 0;
  while (GetJobW(printer, job, kLevel, reinterpret_cast<BYTE*>(told.data()),
                 static_cast<DWORD>(told.size()), &size) == FALSE) {
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return std::nullopt;
    told.resize(size);
  }
  const auto& info = *reinterpret_cast<const JOB_INFO_1W*>(told.data());
  return JobState{info.Status, info.TotalPages, info.PagesPrinted};
}

}  // namespace

std::vector<std::string> PrinterNames() {
  constexpr DWORD kNamesAlone = 4;  // the only level that asks no other machine
  const PrinterList list(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, kNamesAlone);
  std::vector<std::string> names;
  for (const PRINTER_INFO_4W& printer : list.As<PRINTER_INFO_4W>()) {
    names.push_back(FromWide(printer.pPrinterName));
  }
  return names;
}

// What is told of a connected printer is fetched from its server, which may be away.
std::string PrinterOfDriver(const std::string& driver) {
  constexpr DWORD kWithDrivers = 2;
  const std::wstring wanted = ToWide(driver);
  const PrinterList list(PRINTER_ENUM_LOCAL, kWithDrivers);
  for (const PRINTER_INFO_2W& printer : list.As<PRINTER_INFO_2W>()) {
    if (printer.pDriverName != nullptr &&
        CompareStringOrdinal(printer.pDriverName, -1, wanted.c_str(), -1, TRUE) == CSTR_EQUAL) {
      return FromWide(printer.pPrinterName);
    }
  }
  return {};
}

bool WaitForJobs(const std::string& printer, const std::vector<int>& jobs) {
  constexpr DWORD kMostIdleTime = 60'000;  // milliseconds, as is the pause
  constexpr DWORD kPause = 50;
  const PrinterHandle opened = OpenPrinterOf(printer);
  if (!opened) return false;
  std::vector<JobState> before;
  for (DWORD idleTime = 0; idleTime < kMostIdleTime; idleTime += kPause) {
    std::vector<JobState> states;
    for (const int job : jobs) {
      if (const auto state = StateOf(opened.get(), job)) states.push_back(*state);
    }
    if (states.empty()) return true;
    if (states != before) idleTime = 0;
    before = std::move(states);
    Sleep(kPause);
  }
  return false;
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

// The driver tells by how many degrees a page is turned against the clock.
LandscapeTurn TurnOf(const std::string& printer) {
  const int degrees =
      DeviceCapabilitiesW(ToWide(printer).c_str(), nullptr, DC_ORIENTATION, nullptr, nullptr);
  return degrees == 270 || degrees == -90 ? LandscapeTurn::kTopRight : LandscapeTurn::kTopLeft;
}

}  // namespace td
