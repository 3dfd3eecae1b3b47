// Where a line of text may break.
#pragma once

#include <string_view>
#include <vector>

namespace td {

// For each unit of a text, and for its end.
struct BreakPoint {
  bool ofLine = false;    // a line may end in front of it
  bool ofLetter = false;  // a letter begins here, with all its marks
};

// The first and the last are both.
[[nodiscard]] std::vector<BreakPoint> BreakPointsOf(std::wstring_view text);

}  // namespace td
