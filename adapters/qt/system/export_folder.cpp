#include "qt/system/export_folder.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "qt/system/device_failure.h"

namespace td {
namespace {

namespace fs = std::filesystem;

// An open file descriptor, closed when it goes out of scope.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  [[nodiscard]] int Number() const { return number_; }
  [[nodiscard]] bool IsOpen() const { return number_ >= 0; }

 private:
  int number_;
};

// A file of the folder that is removed again unless it is given its name.
class TemporaryName {
 public:
  TemporaryName(int folder, const std::string& name)
      : folder_(folder), name_("." + name + "." + std::to_string(getpid())) {}
  ~TemporaryName() {
    if (isOwned_) unlinkat(folder_, name_.c_str(), 0);
  }
  TemporaryName(const TemporaryName&) = delete;
  TemporaryName& operator=(const TemporaryName&) = delete;

  // A new file, or -1 with errno. A leftover of a process that died with the same number goes.
  int Create() {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    unlinkat(folder_, name_.c_str(), 0);
    const int file = openat(folder_, name_.c_str(), kFlags, S_IRUSR | S_IWUSR);
    isOwned_ = file >= 0;
    return file;
  }

  bool RenameTo(const std::string& name) {
    if (renameat(folder_, name_.c_str(), folder_, name.c_str()) != 0) return false;
    isOwned_ = false;
    return true;
  }

 private:
  int folder_;
  std::string name_;
  bool isOwned_ = false;
};

[[noreturn]] void FailOn(int number, const std::string& path) {
  throw DeviceFailure(number, "无法保存文件“" + path + "”：" + std::strerror(errno));
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

void MakePrivateFolders(const fs::path& folder) {
  if (folder.has_parent_path() && folder.parent_path() != folder) {
    std::error_code error;
    if (!fs::is_directory(folder.parent_path(), error)) MakePrivateFolders(folder.parent_path());
  }
  if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST) {
    FailOn(kPathNotFound, folder.string());
  }
}

bool WriteAll(int file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = write(file, content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
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

std::string FileNameOf(const std::string& path) {
  const std::size_t separator = path.find_last_of("/\\:");
  return separator == std::string::npos ? path : path.substr(separator + 1);
}

void WritePrivateFile(const std::string& folder, const std::string& name, const FileWriter& write) {
  const std::string path = folder + "/" + name;
  const fs::path withoutSlash = fs::path(folder + "/").parent_path();
  MakePrivateFolders(withoutSlash);
  const Descriptor directory(
      open(withoutSlash.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (!directory.IsOpen()) FailOn(kPathNotFound, folder);

  TemporaryName temporary(directory.Number(), name);
  const Descriptor file(temporary.Create());
  if (!file.IsOpen()) FailOn(kDeviceIo, path);
  write([&](std::string_view part) {
    if (!WriteAll(file.Number(), part)) FailOn(kDeviceIo, path);
  });
  if (fsync(file.Number()) != 0 || !temporary.RenameTo(name)) FailOn(kDeviceIo, path);
  // Without this the new name could be lost by a power cut; the file is whole either way.
  fsync(directory.Number());
}

}  // namespace td
