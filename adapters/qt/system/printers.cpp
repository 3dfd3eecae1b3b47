#include "qt/system/printers.h"

#include <cups/cups.h>

#include <algorithm>
#include <cmath>

#include "page_document/drawing.h"
#include "qt/system/cups_handles.h"

namespace td {
namespace {

// The list of the printing system, freed when it goes out of scope.
class Destinations {
 public:
  Destinations() : count_(cupsGetDests2(CUPS_HTTP_DEFAULT, &list_)) {}
  ~Destinations() { cupsFreeDests(count_, list_); }
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
    const cups_dest_t* chosen = cupsGetDest(nullptr, nullptr, count_, list_);
    if (chosen != nullptr) return chosen->name;
    return count_ > 0 ? list_[0].name : "";
  }

 private:
  cups_dest_t* list_ = nullptr;
  int count_;
};

// The printing system's unit of length is a hundredth of a millimetre.
int Hundredths(double twips) {
  return static_cast<int>(std::lround(twips / kTwipsPerInch * 2540));
}

PaperExtent Extent(int width, int length) {
  return {width * kTwipsPerInch / 2540, length * kTwipsPerInch / 2540};
}

// The size of a sheet's name, which may be the standard's, the driver's or an older one.
std::optional<PaperExtent> ExtentOf(const char* name) {
  if (name == nullptr) return std::nullopt;
  for (const auto find : {pwgMediaForPWG, pwgMediaForPPD, pwgMediaForLegacy}) {
    if (const pwg_media_t* media = find(name)) return Extent(media->width, media->length);
  }
  return std::nullopt;
}

// A setting of a queue for all jobs that do not say otherwise.
const char* SettingOf(const CupsPrinter& queue, const char* name) {
  return cupsGetOption(name, queue.Destination()->num_options, queue.Destination()->options);
}

const char* DefaultMedia(const CupsPrinter& queue) {
  ipp_attribute_t* media =
      cupsFindDestDefault(CUPS_HTTP_DEFAULT, queue.Destination(), queue.Details(), CUPS_MEDIA);
  return media == nullptr ? nullptr : ippGetString(media, 0, nullptr);
}

}  // namespace

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
  if (printer.empty()) return std::nullopt;
  const CupsPrinter queue(printer);
  if (!queue.IsReachable()) return std::nullopt;
  for (const char* setting : {SettingOf(queue, "media"), SettingOf(queue, "PageSize")}) {
    if (const auto sheet = ExtentOf(setting)) return sheet;
  }
  return ExtentOf(DefaultMedia(queue));
}

std::optional<std::string> SheetName(const std::string& printer, const PaperExtent& extent) {
  constexpr int kTolerance = 20;
  const CupsPrinter queue(printer);
  if (!queue.IsReachable()) return std::nullopt;
  const int width = Hundredths(extent.width);
  const int height = Hundredths(extent.height);
  cups_size_t found = {};
  if (cupsGetDestMediaBySize(CUPS_HTTP_DEFAULT, queue.Destination(), queue.Details(), width, height,
                             CUPS_MEDIA_FLAGS_DEFAULT, &found) == 0) {
    return std::nullopt;
  }
  const bool isSame =
      std::abs(found.width - width) <= kTolerance && std::abs(found.length - height) <= kTolerance;
  return isSame ? std::optional<std::string>(found.media) : std::nullopt;
}

}  // namespace td
