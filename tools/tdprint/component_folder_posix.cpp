#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "component_folder.h"
#include "files/descriptor.h"
#include "files/file_error.h"
#include "files/leftovers.h"
#include "platform/failure.h"

namespace td {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = "tdprint-";

// A folder for the user alone, under a name that nothing had.
fs::path MakeFolder(const fs::path& parent) {
  for (;;) {
    fs::path folder = parent / RandomName(kPrefix);
    if (mkdir(folder.c_str(), S_IRWXU) == 0) return folder;
    if (errno != EEXIST) throw FileError(errno);
  }
}

Descriptor OpenFolder(const fs::path& folder) {
  return Descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

}  // namespace

struct ComponentFolder::Mark {
  explicit Mark(Descriptor opened) : folder(std::move(opened)) {}

  Descriptor folder;
};

ComponentFolder::ComponentFolder() {
  std::error_code error;
  const fs::path parent = fs::temp_directory_path(error);
  try {
    if (error) throw FileError(error.value());
    SweepLeftovers(OpenFolder(parent), kPrefix, [&](const std::string& leftover) {
      std::error_code ignored;
      fs::remove_all(parent / leftover, ignored);
    });
    path_ = MakeFolder(parent);
    mark_ = std::make_unique<Mark>(OpenFolder(path_));
    HoldInUse(mark_->folder);
    fs::create_directory(fs::path(path_) / "picture");
  } catch (const std::runtime_error& failure) {
    throw Failure(kPathNotFound,
                  "no folder for temporary files can be made: " + std::string(failure.what()));
  }
}

ComponentFolder::~ComponentFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

}  // namespace td
