#include "qt/system/printers.h"

#include <algorithm>

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

std::optional<PrinterMargins> MarginsOf(const std::string& printer, const PaperExtent& extent) {
  if (!HasCups()) return std::nullopt;
  const CupsPrinter queue(printer);
  return queue.IsReachable() ? MarginsOf(queue, extent) : std::nullopt;
}

std::optional<std::string> SheetName(const std::string& printer, const PaperExtent& extent) {
  if (!HasCups()) return std::nullopt;
  const CupsPrinter queue(printer);
  return queue.IsReachable() ? SheetName(queue, extent) : std::nullopt;
}

}  // namespace td
