// What the engine and the platform say to each other of a file.
#pragma once

#include <optional>
#include <string>

namespace td {

struct EngineFile {
  std::string name;              // absolute: ":memory:" would have a meaning of its own
  const char* access = nullptr;  // the engine's way to files of this kind; null: its usual one
};

// Nothing, with errno set, for a path that the system can't make a whole one of.
[[nodiscard]] std::optional<EngineFile> EngineFileOf(const std::string& path);

// The number of a FileError for what the engine tells as the system's error; 0 stays 0.
[[nodiscard]] int FileErrorNumber(int systemError);

}  // namespace td
