// Where a run is: what a message or an entry of a log adds to its words.
#pragma once

#include <cstdint>
#include <string>

#include "explanation/language.h"

namespace td {

// What isn't known is empty or 0.
struct RunPlace {
  std::int16_t billType = 0;
  std::string format{};    // its name
  int band = 0;            // 1 to 5 as in the tables; kFillerBand
  std::string item{};      // its label or its name
  std::string variable{};  // the column that it shows
  std::string bill{};      // FBillNo of the data, else FInterID
  int row = 0;             // of the data, from 1
  int page = 0;            // of the document, from 1

  [[nodiscard]] bool IsKnown() const { return billType != 0 || !format.empty(); }
  bool operator==(const RunPlace&) const = default;
};

inline constexpr int kFillerBand = 6;  // an empty row that fills a page

// "column head", "列标题"; other numbers as they are.
[[nodiscard]] std::string BandName(int band, Language language);

// "format 销售单, column head, 客户 (variable FCustName), bill XD-2403-0002, row 3, page 2": what
// is known of the place, in one line; empty if nothing is.
[[nodiscard]] std::string PlaceText(const RunPlace& place, Language language);

// The text with the place behind it in brackets, if anything is known of it.
[[nodiscard]] std::string WithPlace(const std::string& text, const RunPlace& place,
                                    Language language);

}  // namespace td
