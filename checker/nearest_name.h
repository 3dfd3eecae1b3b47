// The name that was meant, where one is misspelt.
#pragma once

#include <string>
#include <vector>

namespace td::checker {

// The candidate that differs from `name` by the fewest characters, without regard to case; empty if
// none is near.
[[nodiscard]] std::string NearestName(const std::string& name,
                                      const std::vector<std::string>& candidates);

// Without the blanks in it, those of full width included.
[[nodiscard]] std::string WithoutBlanks(const std::string& text);
// Whether there are blanks at its ends.
[[nodiscard]] bool HasOuterBlanks(const std::string& text);

}  // namespace td::checker
