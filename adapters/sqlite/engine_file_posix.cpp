#include <cerrno>
#include <system_error>

#include "files/path_text.h"
#include "sqlite/engine_file.h"

namespace td {

std::optional<EngineFile> EngineFileOf(const std::string& path) {
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::absolute(PathOf(path), error);
  if (!error) return EngineFile{.name = TextOf(whole), .access = nullptr};
  errno = error.value();
  return std::nullopt;
}

int FileErrorNumber(int systemError) {
  return systemError;
}

}  // namespace td
