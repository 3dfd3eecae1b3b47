#include <cerrno>

#include "files/path_text.h"
#include "files/windows_files.h"
#include "sqlite/engine_file.h"

namespace td {

// By the usual way the engine takes no path that is longer than 260 characters.
std::optional<EngineFile> EngineFileOf(const std::string& path) {
  try {
    return EngineFile{.name = TextOf(SystemPath(PathOf(path))), .access = "win32-longpath"};
  } catch (const FileError& error) {
    errno = error.Number();
    return std::nullopt;
  }
}

int FileErrorNumber(int systemError) {
  return systemError == 0 ? 0 : NumberOfError(static_cast<unsigned long>(systemError));
}

}  // namespace td
