// Whether barcodes have bars, and bars that a scanner reads.
#pragma once

#include <map>
#include <string>

#include "checker/checks.h"

namespace td::checker {

// Watches a run; Report then adds what it has seen. Without real texts a number of usual length is
// taken.
class BarcodeCheck : public TrialObserver {
 public:
  BarcodeCheck(BarcodeSettings settings, bool hasValues)
      : settings_(std::move(settings)), hasValues_(hasValues) {}

  void Draws(const Drawing& drawing) override;
  void PageEnds(const PaperExtent& /*page*/) override {}

  void Report(FindingList& findings) const;

 private:
  struct Refusal {
    std::string text;
    std::string reason;
  };
  struct Narrow {
    std::string text;
    double module = 0;  // twips
    double box = 0;
  };

  BarcodeSettings settings_;
  bool hasValues_;
  std::map<std::size_t, Refusal> refused_;
  std::map<std::size_t, Narrow> narrowest_;
};

}  // namespace td::checker
