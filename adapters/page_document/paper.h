// The standard paper numbers of printing systems.
#pragma once

#include <cstdint>
#include <optional>

namespace td {

inline constexpr std::int32_t kPaperA4 = 9;

// Twips, of the sheet held upright as its maker names it (an envelope or a ledger may be wide).
struct PaperExtent {
  double width = 0;
  double height = 0;
  bool operator==(const PaperExtent&) const = default;
};

// The sheet of a standard number: 1 is Letter, 9 is A4, 11 is A5. Nothing for any other number, 0
// and 256 included.
[[nodiscard]] std::optional<PaperExtent> StandardPaper(std::int32_t code);

}  // namespace td
