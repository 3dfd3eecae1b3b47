#include "component_folder.h"

#include <stdlib.h>

#include <filesystem>
#include <system_error>

#include "platform/failure.h"

namespace td {

namespace fs = std::filesystem;

ComponentFolder::ComponentFolder() {
  std::error_code error;
  std::string pattern = (fs::temp_directory_path(error) / "tdprint-XXXXXX").string();
  if (error || mkdtemp(pattern.data()) == nullptr) {
    throw Failure(kPathNotFound, "no folder for temporary files can be made: " + pattern);
  }
  path_ = pattern;
  fs::create_directory(fs::path(path_) / "picture", error);
}

ComponentFolder::~ComponentFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

}  // namespace td
