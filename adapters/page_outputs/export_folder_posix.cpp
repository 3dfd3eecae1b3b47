#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "files/descriptor.h"
#include "files/file_error.h"
#include "files/private_folder.h"
#include "files/whole_file.h"
#include "page_outputs/export_folder.h"
#include "platform/standard_failures.h"

namespace td {
namespace {

namespace fs = std::filesystem;

Failure SavingFailure(int number, const std::string& path, const std::string& reason) {
  return {number, WithoutLockCharacter("无法保存文件“" + path + "”：" + reason + "。")};
}

std::string AbsolutePathFrom(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && value[0] == '/' ? value : std::string();
}

std::string HomeFolder() {
  if (std::string home = AbsolutePathFrom("HOME"); !home.empty()) return home;
  const passwd* user = getpwuid(geteuid());
  return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : std::string();
}

}  // namespace

std::string DefaultStateFolder() {
  if (std::string chosen = AbsolutePathFrom("QBTDPRINTER_STATE_DIR"); !chosen.empty()) {
    return chosen;
  }
  if (const std::string state = AbsolutePathFrom("XDG_STATE_HOME"); !state.empty()) {
    return state + "/qbtdprinter";
  }
  const std::string home = HomeFolder();
  return home.empty() ? home : home + "/.local/state/qbtdprinter";
}

void WritePrivateFile(const std::string& folder, const std::string& name, const FileWriter& write) {
  const fs::path withoutSlash = fs::path(folder + "/").parent_path();
  if (const std::string failed = MakePrivateFolder(withoutSlash.string()); !failed.empty()) {
    throw SavingFailure(kPathNotFound, failed, ReasonOf(errno));
  }
  const Descriptor directory(
      open(withoutSlash.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (!directory.IsOpen()) throw SavingFailure(kPathNotFound, folder, ReasonOf(errno));
  try {
    ReplaceFile(directory, name, {.mode = S_IRUSR | S_IWUSR}, write);
  } catch (const FileError& error) {
    throw SavingFailure(kDeviceIo, folder + "/" + name, error.what());
  }
}

}  // namespace td
