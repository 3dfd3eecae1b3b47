// Whether texts keep to their boxes and out of each other's way.
#pragma once

#include <map>
#include <utility>
#include <vector>

#include "checker/checks.h"
#include "checker/text_ink.h"

namespace td::checker {

// Watches a run; Report then adds what it has seen. Without values only fixed texts are looked at.
class TextCheck : public TrialObserver {
 public:
  TextCheck(const FormatRows& format, bool hasValues) : format_(format), hasValues_(hasValues) {}

  void Draws(const Drawing& drawing) override;
  void PageEnds(const PaperExtent& page) override;

  void Report(FindingList& findings) const;

 private:
  struct Overflow {
    std::string text;
    double excess = 0;
    double size = 0;  // of the text
    double box = 0;
    int lines = 0;
  };
  struct Text {
    std::size_t item = 0;
    std::string text;
    TextInk ink;
    WitnessedBand band{};
    int page = 0;
    bool isBarcode = false;
  };
  struct Overlap {
    std::string text;
    std::string other;
    double width = 0;
    double height = 0;
    bool isOfLaterPages = true;  // of two bands, and never on the first page
    bool isBarcode = false;      // one of both
  };

  void Compare(const Text& a, const Text& b);

  const FormatRows& format_;
  bool hasValues_;
  std::map<std::size_t, Overflow> tooLong_;
  std::map<std::size_t, Overflow> tooHigh_;
  std::map<std::pair<std::size_t, std::size_t>, Overlap> overlaps_;
  std::vector<Text> page_;  // what the current page has
};

}  // namespace td::checker
