// The texts in quotes of the project's sources.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace td {

// A text as the compiler sees it, with the statement that it stands in.
struct SourceText {
  std::string text;
  std::string statement;  // without its comments
  std::string file;       // below the project's folder
};

// Of all sources in a folder. Texts that stand beside each other are one.
[[nodiscard]] std::vector<SourceText> TextsOf(const std::filesystem::path& project,
                                              const std::string& folder);

}  // namespace td
