#include "checker/sheet_checks.h"

#include <algorithm>

#include "checker/text_ink.h"
#include "page_document/commands.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

using enum FindingKind;

constexpr double kTolerance = 0.2 * kTwipsPerMillimetre;

}  // namespace

void SheetCheck::Draws(const Drawing& drawing) {
  if (drawing.what == DrawnAs::kStamp) return;
  ItemPlaces& item = items_[drawing.item];
  Place place{drawing.item, drawing.left, drawing.top, drawing.right, drawing.bottom};
  const double width = place.right - place.left;
  const double height = place.bottom - place.top;
  item.isLine = drawing.what == DrawnAs::kLine;
  item.isPicture = drawing.what == DrawnAs::kPicture;
  if (width != 0 || height != 0) item.hasLength = true;
  if (!item.isLine && (drawing.box != nullptr || item.isPicture) && (width <= 0 || height <= 0)) {
    item.hasArea = false;
  }
  if (drawing.isBarcode && drawing.band == WitnessedBand::kRow) {
    const bool isNew = barcodes_.insert({drawing.item, place.left, place.top}).second;
    item.isRepeated = item.isRepeated || !isNew;
  }
  if (drawing.box != nullptr) {
    const TextInk ink = InkOf(*drawing.box);
    if (ink.lines == 0) return;
    place = {drawing.item, ink.left, ink.top, ink.right, ink.bottom};
  }
  page_.push_back(place);
}

void SheetCheck::PageEnds(const PaperExtent& page) {
  for (const Place& place : page_) CheckPlace(place, page);
  page_.clear();
  barcodes_.clear();
}

void SheetCheck::CheckPlace(const Place& place, const PaperExtent& page) {
  ItemPlaces& item = items_[place.item];
  if (!item.reach) {
    item.reach = place;
  } else {
    item.reach->left = std::min(item.reach->left, place.left);
    item.reach->top = std::min(item.reach->top, place.top);
    item.reach->right = std::max(item.reach->right, place.right);
    item.reach->bottom = std::max(item.reach->bottom, place.bottom);
  }
  const bool isOff =
      place.right <= 0 || place.bottom <= 0 || place.left >= page.width || place.top >= page.height;
  const bool isPartly = place.left < -kTolerance || place.top < -kTolerance ||
                        place.right > page.width + kTolerance ||
                        place.bottom > page.height + kTolerance;
  if (!isOff && !isPartly) return;
  const StoredRow row = format_.Item(place.item);
  const double ownBottom = row.Number("FTop").value_or(0) + row.Number("FHeight").value_or(0);
  const bool reachesRight = place.left < -kTolerance || place.right > page.width + kTolerance;
  if (!reachesRight && place.bottom > page.height && ownBottom <= page.height) {
    item.isMovedOff = true;
  } else if (isOff) {
    if (!item.off) item.off = place;
  } else if (!item.partly) {
    item.partly = place;
  }
}

void SheetCheck::ReportSizes(std::size_t index, FindingList& findings) const {
  const ItemPlaces& item = items_[index];
  const StoredRow row = format_.Item(index);
  const Arguments size = {StoredText(row, "FWidth"), StoredText(row, "FHeight")};
  if (item.isLine && !item.hasLength) findings.AddItem(index, kLineLength, size);
  if (!item.hasArea) findings.AddItem(index, item.isPicture ? kNoArea : kBoxSize, size);
  if (item.isRepeated) findings.AddItem(index, kImageRepeated, {});
}

void SheetCheck::ReportPlaces(const PaperExtent& sheet, const TrialResult& trial,
                              FindingList& findings) const {
  const std::string width = MillimetresText(sheet.width);
  const std::string height = MillimetresText(sheet.height);
  std::int64_t moved = 0;
  double lowest = 0;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const ItemPlaces& item = items_[i];
    if (item.isMovedOff) {
      ++moved;
      lowest = std::max(lowest, item.reach->bottom);
    }
    if (item.off) {
      findings.AddItem(
          i, kOffSheet,
          {MillimetresText(item.off->left), MillimetresText(item.off->top), width, height});
    } else if (item.partly) {
      const Place& place = *item.partly;
      findings.AddItem(i, kPartlyOffSheet,
                       {MillimetresText(place.left < 0 ? place.left : place.right),
                        MillimetresText(place.top < 0 ? place.top : place.bottom), width, height});
    }
  }
  if (moved == 0) return;
  findings.Add(kRowsOffSheet,
               {StoredText(format_.Bill(), "FRowsPerPage"), MillimetresText(trial.rowHeight),
                ToText(moved), MillimetresText(lowest), height});
}

// A sheet that lies across is turned one way or the other: of two edges that may be each other's,
// the smaller margin counts.
void SheetCheck::ReportMargins(const PaperExtent& sheet, const TrialResult& trial,
                               const CheckedMachine& machine, FindingList& findings) const {
  if (trial.printer.empty()) return;
  std::optional<SheetMargins> margins = machine.Margins(trial.printer, sheet);
  if (!margins) {
    const auto across = machine.Margins(trial.printer, {sheet.height, sheet.width});
    if (!across) return;
    const double sides = std::min(across->top, across->bottom);
    const double ends = std::min(across->left, across->right);
    margins = SheetMargins{sides, ends, sides, ends};
  }
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const ItemPlaces& item = items_[i];
    if (!item.reach || item.off || item.partly || item.isMovedOff) continue;
    const Place& place = *item.reach;
    const std::array edges = {std::pair(place.left, margins->left),
                              std::pair(place.top, margins->top),
                              std::pair(sheet.width - place.right, margins->right),
                              std::pair(sheet.height - place.bottom, margins->bottom)};
    const auto worst = std::ranges::max_element(
        edges, {}, [](const auto& edge) { return edge.second - edge.first; });
    if (worst->second - worst->first <= kTolerance) continue;
    findings.AddItem(i, kBehindMargin,
                     {MillimetresText(std::max(0.0, worst->first)), trial.printer,
                      MillimetresText(worst->second)});
  }
}

void SheetCheck::Report(const TrialResult& trial, const CheckedMachine& machine,
                        FindingList& findings) const {
  for (std::size_t i = 0; i < items_.size(); ++i) ReportSizes(i, findings);
  if (!trial.sheet || findings.Has(kPaperMillimetres)) return;
  ReportPlaces(*trial.sheet, trial, findings);
  ReportMargins(*trial.sheet, trial, machine, findings);
}

}  // namespace td::checker
