#include "qt/system/cups_sheets.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "page_document/drawing.h"

namespace td {
namespace {

// The printing system's unit of length is a hundredth of a millimetre.
int Hundredths(double twips) {
  return static_cast<int>(std::lround(twips / kTwipsPerInch * 2540));
}

double Twips(int hundredths) {
  return hundredths * kTwipsPerInch / 2540;
}

PaperExtent Extent(int width, int length) {
  return {Twips(width), Twips(length)};
}

// The size of a sheet's name, which may be the standard's, the driver's or an older one.
std::optional<PaperExtent> ExtentOf(const char* name) {
  if (name == nullptr) return std::nullopt;
  for (const auto find : {Cups().pwgMediaForPWG, Cups().pwgMediaForPPD, Cups().pwgMediaForLegacy}) {
    if (const pwg_media_t* media = find(name)) return Extent(media->width, media->length);
  }
  return std::nullopt;
}

// A setting of a queue for all jobs that do not say otherwise.
const char* SettingOf(const CupsPrinter& queue, const char* name) {
  return Cups().cupsGetOption(name, queue.Destination()->num_options, queue.Destination()->options);
}

ipp_attribute_t* DefaultOf(const CupsPrinter& queue, const char* name) {
  return Cups().cupsFindDestDefault(CUPS_HTTP_DEFAULT, queue.Destination(), queue.Details(), name);
}

const char* DefaultMediaName(const CupsPrinter& queue) {
  ipp_attribute_t* media = DefaultOf(queue, CUPS_MEDIA);
  return media == nullptr ? nullptr : Cups().ippGetString(media, 0, nullptr);
}

// For drivers that have no name for their sheet.
std::optional<PaperExtent> DefaultMediaExtent(const CupsPrinter& queue) {
  ipp_attribute_t* media = DefaultOf(queue, "media-col");
  ipp_t* details = media == nullptr ? nullptr : Cups().ippGetCollection(media, 0);
  ipp_attribute_t* size = Cups().ippFindAttribute(details, "media-size", IPP_TAG_BEGIN_COLLECTION);
  ipp_t* sides = size == nullptr ? nullptr : Cups().ippGetCollection(size, 0);
  ipp_attribute_t* width = Cups().ippFindAttribute(sides, "x-dimension", IPP_TAG_INTEGER);
  ipp_attribute_t* length = Cups().ippFindAttribute(sides, "y-dimension", IPP_TAG_INTEGER);
  if (width == nullptr || length == nullptr) return std::nullopt;
  return Extent(Cups().ippGetInteger(width, 0), Cups().ippGetInteger(length, 0));
}

// The smallest of the lengths that a printer lists, twips; 0 if it lists none.
double SmallestOf(const CupsPrinter& queue, const char* name) {
  ipp_attribute_t* lengths =
      Cups().cupsFindDestSupported(CUPS_HTTP_DEFAULT, queue.Destination(), queue.Details(), name);
  const int count = lengths == nullptr ? 0 : Cups().ippGetCount(lengths);
  int smallest = count == 0 ? 0 : Cups().ippGetInteger(lengths, 0);
  for (int i = 1; i < count; ++i) smallest = std::min(smallest, Cups().ippGetInteger(lengths, i));
  return Twips(smallest);
}

// The sheet that a printer has for a size.
std::optional<cups_size_t> FindSheet(const CupsPrinter& queue, const PaperExtent& extent) {
  cups_size_t found = {};
  if (Cups().cupsGetDestMediaBySize(CUPS_HTTP_DEFAULT, queue.Destination(), queue.Details(),
                                    Hundredths(extent.width), Hundredths(extent.height),
                                    CUPS_MEDIA_FLAGS_DEFAULT, &found) == 0) {
    return std::nullopt;
  }
  const bool isSame = IsSameSheet(Extent(found.width, found.length), extent);
  return isSame ? std::optional(found) : std::nullopt;
}

}  // namespace

std::optional<PaperExtent> OwnSheet(const CupsPrinter& queue) {
  // The printing system itself prefers the older name of the setting.
  for (const char* name :
       {SettingOf(queue, "PageSize"), SettingOf(queue, "media"), DefaultMediaName(queue)}) {
    if (const auto sheet = ExtentOf(name)) return sheet;
  }
  return DefaultMediaExtent(queue);
}

bool TakesAnySize(const CupsPrinter& queue) {
  const char* type = SettingOf(queue, "printer-type");
  return type != nullptr && (std::strtoul(type, nullptr, 10) & CUPS_PRINTER_VARIABLE) != 0;
}

std::optional<SheetMargins> MarginsOf(const CupsPrinter& queue, const PaperExtent& extent) {
  if (const std::optional<cups_size_t> sheet = FindSheet(queue, extent)) {
    return SheetMargins{Twips(sheet->left), Twips(sheet->top), Twips(sheet->right),
                        Twips(sheet->bottom)};
  }
  if (!TakesAnySize(queue)) return std::nullopt;
  return SheetMargins{SmallestOf(queue, "media-left-margin"), SmallestOf(queue, "media-top-margin"),
                      SmallestOf(queue, "media-right-margin"),
                      SmallestOf(queue, "media-bottom-margin")};
}

std::optional<std::string> SheetName(const CupsPrinter& queue, const PaperExtent& extent) {
  const std::optional<cups_size_t> sheet = FindSheet(queue, extent);
  return sheet ? std::optional<std::string>(sheet->media) : std::nullopt;
}

}  // namespace td
