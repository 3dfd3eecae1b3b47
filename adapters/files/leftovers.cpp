#include "files/leftovers.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <memory>
#include <string>

#include "files/file_error.h"

namespace td {
namespace {

constexpr std::size_t kRandomBytes = 8;
constexpr std::string_view kDigits = "0123456789abcdef";
constexpr std::time_t kOldAfterSeconds = 3600;

bool IsRandomName(std::string_view prefix, std::string_view name) {
  if (!name.starts_with(prefix)) return false;
  name.remove_prefix(prefix.size());
  return name.size() == 2 * kRandomBytes && name.find_first_not_of(kDigits) == name.npos;
}

bool IsLeftover(const Descriptor& entry) {
  struct stat state {};
  return entry.IsOpen() && fstat(entry.Number(), &state) == 0 && state.st_uid == geteuid() &&
         state.st_mtime < std::time(nullptr) - kOldAfterSeconds &&
         flock(entry.Number(), LOCK_EX | LOCK_NB) == 0;
}

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

}  // namespace

std::string RandomName(std::string_view prefix) {
  std::array<unsigned char, kRandomBytes> bytes{};
  if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
    throw FileError(errno);
  }
  std::string name(prefix);
  for (const unsigned char byte : bytes) {
    name += kDigits[byte / 16];
    name += kDigits[byte % 16];
  }
  return name;
}

void HoldInUse(const Descriptor& fileOrFolder) {
  // Where the file system knows no locks, the age alone protects.
  (void)flock(fileOrFolder.Number(), LOCK_EX | LOCK_NB);
}

void SweepLeftovers(const Descriptor& folder, std::string_view prefix,
                    const std::function<void(const std::string& name)>& remove) {
  const int listed = openat(folder.Number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (listed < 0) return;
  const std::unique_ptr<DIR, CloseFolder> entries(fdopendir(listed));
  if (!entries) {
    close(listed);
    return;
  }
  while (const dirent* entry = readdir(entries.get())) {
    const std::string name = entry->d_name;
    if (!IsRandomName(prefix, name)) continue;
    const Descriptor opened(
        openat(folder.Number(), name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (IsLeftover(opened)) remove(name);
  }
}

}  // namespace td
