// Paths as the component writes them, in UTF-8, and as the file system takes them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace td {

[[nodiscard]] inline std::filesystem::path PathOf(std::string_view utf8) {
  return {std::u8string(utf8.begin(), utf8.end())};
}

[[nodiscard]] inline std::string TextOf(const std::filesystem::path& path) {
  const std::u8string utf8 = path.u8string();
  return {utf8.begin(), utf8.end()};
}

// The same as PathOf, for the streams of the standard library: on Windows in the form that the
// system takes whatever its length is.
[[nodiscard]] std::filesystem::path OpenPathOf(std::string_view utf8);

}  // namespace td
