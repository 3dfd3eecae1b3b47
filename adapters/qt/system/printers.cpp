#include "qt/system/printers.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

#include "files/descriptor.h"
#include "files/file_error.h"
#include "files/read_file.h"
#include "qt/system/cups_handles.h"
#include "qt/system/cups_library.h"
#include "qt/system/cups_sheets.h"

namespace td {
namespace {

// The list of the printing system, freed when it goes out of scope.
class Destinations {
 public:
  Destinations() {
    if (HasCups()) count_ = Cups().cupsGetDests2(CUPS_HTTP_DEFAULT, &list_);
  }
  ~Destinations() {
    if (count_ > 0) Cups().cupsFreeDests(count_, list_);
  }
  Destinations(const Destinations&) = delete;
  Destinations& operator=(const Destinations&) = delete;

  // A queue's instances are the same printer under other settings; they are not listed.
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (int i = 0; i < count_; ++i) {
      if (list_[i].instance == nullptr) names.emplace_back(list_[i].name);
    }
    return names;
  }

  [[nodiscard]] std::string Default() const {
    if (count_ == 0) return {};
    const cups_dest_t* chosen = Cups().cupsGetDest(nullptr, nullptr, count_, list_);
    if (chosen != nullptr) return chosen->name;
    return list_[0].name;
  }

 private:
  cups_dest_t* list_ = nullptr;
  int count_ = 0;
};

// The driver's file of a queue; empty if it has none, or none that can be had.
std::string DriverOf(const std::string& printer) {
  constexpr std::size_t kLargest = 4 << 20;
  const Descriptor file(memfd_create("driver", MFD_CLOEXEC));
  const std::string resource = "/printers/" + printer + ".ppd";
  if (!file.IsOpen() || !HasCups() ||
      Cups().cupsGetFd(CUPS_HTTP_DEFAULT, resource.c_str(), file.Number()) != HTTP_STATUS_OK ||
      lseek(file.Number(), 0, SEEK_SET) != 0) {
    return {};
  }
  try {
    return ReadRegularFile(file, kLargest);
  } catch (const FileError&) {
    return {};
  }
}

}  // namespace

void RequirePrintingSystem() {
  static_cast<void>(Cups());
}

std::vector<std::string> PrinterNames() {
  return Destinations().Names();
}

std::string DefaultPrinter() {
  return Destinations().Default();
}

bool HasPrinter(const std::string& name) {
  return std::ranges::count(PrinterNames(), name) > 0;
}

std::optional<PaperExtent> OwnSheet(const std::string& printer) {
  if (printer.empty() || !HasCups()) return std::nullopt;
  const CupsPrinter queue(printer);
  return queue.IsReachable() ? OwnSheet(queue) : std::nullopt;
}

std::optional<SheetMargins> MarginsOf(const std::string& printer, const PaperExtent& extent) {
  if (!HasCups()) return std::nullopt;
  const CupsPrinter queue(printer);
  return queue.IsReachable() ? MarginsOf(queue, extent) : std::nullopt;
}

std::optional<std::string> SheetName(const std::string& printer, const PaperExtent& extent) {
  if (!HasCups()) return std::nullopt;
  const CupsPrinter queue(printer);
  return queue.IsReachable() ? SheetName(queue, extent) : std::nullopt;
}

// The printing system turns a page that lies across its sheet as the driver says, and where it says
// nothing, with the top to the right.
LandscapeTurn TurnOf(const std::string& printer) {
  const std::string driver = DriverOf(printer);
  const std::size_t at = driver.find("\n*LandscapeOrientation:");
  if (at == std::string::npos) return LandscapeTurn::kTopRight;
  const std::string line = driver.substr(at + 1, driver.find('\n', at + 1) - at - 1);
  return line.find("Plus90") == std::string::npos ? LandscapeTurn::kTopRight
                                                  : LandscapeTurn::kTopLeft;
}

}  // namespace td
