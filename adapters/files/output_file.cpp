#include "files/output_file.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <cerrno>
#include <charconv>
#include <filesystem>
#include <optional>
#include <system_error>

#include "files/descriptor.h"
#include "files/file_error.h"
#include "files/whole_file.h"

namespace td {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;  // as many as the system follows

fs::path RealFolder(const fs::path& folder) {
  std::error_code error;
  fs::path real = fs::canonical(folder.empty() ? "." : folder, error);
  if (error) throw FileError(error.value());
  return real;
}

fs::path FolderOfOwnDescriptors() {
  return "/proc/" + std::to_string(getpid()) + "/fd";
}

// The path of what would be opened, even if it isn't there yet. What this process has open looks
// like a link, too, but need have no path; it stays as it is.
fs::path FollowLinks(fs::path path) {
  for (int links = 0; links < kMostLinks; ++links) {
    const fs::path folder = RealFolder(path.parent_path());
    path = folder / path.filename();
    std::error_code error;
    if (folder == FolderOfOwnDescriptors() || !fs::is_symlink(path, error)) return path;
    path = folder / fs::read_symlink(path, error);
  }
  throw FileError(ELOOP);
}

std::optional<int> OwnDescriptorAt(const fs::path& path) {
  if (path.parent_path() != FolderOfOwnDescriptors()) return std::nullopt;
  const std::string name = path.filename();
  int number = -1;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
  if (error != std::errc{} || *end != '\0') return std::nullopt;
  return number;
}

Descriptor Connect(const fs::path& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string text = path;
  if (text.size() >= sizeof address.sun_path) throw FileError(ENAMETOOLONG);
  text.copy(address.sun_path, text.size());
  Descriptor connection(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  if (!connection.IsOpen() ||
      connect(connection.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) !=
          0) {
    throw FileError(errno);
  }
  return connection;
}

void WriteDirectly(Descriptor target, const FileWriter& write) {
  if (!target.IsOpen()) throw FileError(errno);
  write([&target](std::string_view bytes) { WriteBytes(target, bytes); });
  if (!target.Close()) throw FileError(errno);
}

void WriteWhole(const fs::path& path, const FileRights& rights, const FileWriter& write) {
  const Descriptor folder(open(path.parent_path().c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!folder.IsOpen()) throw FileError(errno);
  ReplaceFile(folder, path.filename(), rights, write);
}

}  // namespace

void WriteOutput(const std::string& path, const FileWriter& write) {
  if (path.empty()) throw FileError(ENOENT);
  const fs::path target = FollowLinks(path);
  if (const std::optional<int> own = OwnDescriptorAt(target)) {
    WriteDirectly(Descriptor(fcntl(*own, F_DUPFD_CLOEXEC, 0)), write);
    return;
  }
  struct stat state {};
  if (stat(target.c_str(), &state) != 0) {
    if (errno != ENOENT) throw FileError(errno);
    WriteWhole(target, {}, write);
  } else if (S_ISREG(state.st_mode)) {
    if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) throw FileError(errno);
    WriteWhole(target, {.like = &state}, write);
  } else if (S_ISDIR(state.st_mode)) {
    throw FileError(EISDIR);
  } else if (S_ISSOCK(state.st_mode)) {
    WriteDirectly(Connect(target), write);
  } else {
    WriteDirectly(Descriptor(open(target.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC)), write);
  }
}

void MakeOutputFolder(const std::string& path) {
  std::error_code error;
  fs::create_directory(path, error);
  if (error) throw FileError(error == std::errc::file_exists ? ENOTDIR : error.value());
}

bool RemoveOutput(const std::string& path) {
  std::error_code error;
  return fs::is_regular_file(fs::symlink_status(path, error)) && fs::remove(path, error);
}

}  // namespace td
