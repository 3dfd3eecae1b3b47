// Files as tests look at them.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace td {

// Its bytes; empty for a file that isn't there.
inline std::string ContentOf(const std::filesystem::path& path) {
  std::stringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

}  // namespace td
