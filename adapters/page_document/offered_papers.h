// The sheets that windows offer by name.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace td {

struct OfferedPaper {
  std::int32_t code;  // a number of StandardPaper
  std::string_view english;
  std::string_view chinese;  // UTF-8
};

// Those in common use, the most usual first. A window may offer all other numbers behind them.
[[nodiscard]] std::span<const OfferedPaper> OfferedPapers();

// The one of a number, or nothing for a number that has no name here.
[[nodiscard]] const OfferedPaper* FindOfferedPaper(std::int32_t code);

}  // namespace td
