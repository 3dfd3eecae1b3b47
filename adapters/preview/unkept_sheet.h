// The warning that a user-defined sheet will not come back.
#pragma once

#include <string>
#include <vector>

namespace td {

// What can be said of a user-defined sheet of a certain size.
struct UnkeptSheet {
  std::string size;
  std::string namedPaper;             // a paper of that size which will come back; empty: none
  std::vector<std::string> printers;  // whose own sheet is of that size
};

enum class SheetAnswer { kUseNamedPaper, kUseOnce, kGoBack };

namespace unkept_sheet_words {
inline constexpr const char* kUseNamedPaper = "改用这种纸张(&U)";
inline constexpr const char* kUseOnce = "只在这次使用(&O)";
inline constexpr const char* kGoBack = "返回修改(&B)";
}  // namespace unkept_sheet_words

// In one sentence; then what will happen, and what helps against it.
[[nodiscard]] std::string WarningOf(const UnkeptSheet& sheet);
[[nodiscard]] std::string AdviceOn(const UnkeptSheet& sheet);

}  // namespace td
