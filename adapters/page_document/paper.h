// The standard paper numbers of printing systems.
#pragma once

#include <cstdint>
#include <optional>

namespace td {

inline constexpr std::int32_t kKeepPaper = 0;  // written as a paper code, it changes nothing
inline constexpr std::int32_t kUserDefinedPaper = 256;
inline constexpr std::int32_t kPaperA4 = 9;

// Twips, of the sheet held upright as its maker names it (an envelope or a ledger may be wide).
struct PaperExtent {
  double width = 0;
  double height = 0;
  bool operator==(const PaperExtent&) const = default;
};

// Sides that differ by up to 0.2 mm are the same size: a page is centred on its sheet, so that
// nothing on it then lies more than 0.1 mm beside its place.
[[nodiscard]] bool IsSameSheet(const PaperExtent& one, const PaperExtent& other);

// The sheet of a standard number: 1 is Letter, 9 is A4, 11 is A5. Nothing for any other number, 0
// and 256 included.
[[nodiscard]] std::optional<PaperExtent> StandardPaper(std::int32_t code);

// The lowest standard number of a sheet of this size, kUserDefinedPaper if there is none.
[[nodiscard]] std::int32_t PaperCodeOf(const PaperExtent& sheet);

}  // namespace td
