// Whether what is drawn lies on the sheet, where the printer reaches it.
#pragma once

#include <set>
#include <tuple>
#include <vector>

#include "checker/checks.h"

namespace td::checker {

// Watches a run; Report then adds what it has seen.
class SheetCheck : public TrialObserver {
 public:
  explicit SheetCheck(const FormatRows& format) : format_(format), items_(format.ItemCount()) {}

  void Draws(const Drawing& drawing) override;
  void PageEnds(const PaperExtent& page) override;

  void Report(const TrialResult& trial, const CheckedMachine& machine, FindingList& findings) const;

 private:
  struct Place {
    std::size_t item = 0;
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
  };
  struct ItemPlaces {
    std::optional<Place> off;     // the first time beside the sheet
    std::optional<Place> partly;  // the first time over its edge
    bool isMovedOff = false;      // its own place is on the sheet: the rows have moved it
    std::optional<Place> reach;   // all of it
    bool hasLength = false;
    bool hasArea = true;
    bool isPicture = false;
    bool isLine = false;
    bool isRepeated = false;
  };

  void CheckPlace(const Place& place, const PaperExtent& page);
  void ReportSizes(std::size_t item, FindingList& findings) const;
  void ReportPlaces(const PaperExtent& sheet, const TrialResult& trial,
                    FindingList& findings) const;
  void ReportMargins(const PaperExtent& sheet, const TrialResult& trial,
                     const CheckedMachine& machine, FindingList& findings) const;

  const FormatRows& format_;
  std::vector<ItemPlaces> items_;
  std::vector<Place> page_;  // what the current page has
  std::set<std::tuple<std::size_t, double, double>> barcodes_;
};

}  // namespace td::checker
