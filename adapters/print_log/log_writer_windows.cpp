#include <cerrno>
#include <chrono>
#include <string>
#include <thread>

#include "files/file_error.h"
#include "files/path_text.h"
#include "files/windows_file.h"
#include "print_log/log_writer.h"

namespace td {
namespace {

constexpr std::chrono::seconds kLongestWait(2);
constexpr std::chrono::milliseconds kPause(5);
// No byte of a log lies there: the lock keeps writers from each other, and nobody from reading.
constexpr DWORD kLockedPlace = 0x7FFFFFFF;

WindowsFile OpenFor(const std::string& path, DWORD access) {
  return WindowsFile(CreateFileW(SystemPath(PathOf(path)).c_str(), access,
                                 FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                 OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

WindowsFile Open(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(SystemPath(PathOf(path)).c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    throw FileError(EISDIR);
  }
  // Every write goes to the end of the file.
  WindowsFile file = OpenFor(path, FILE_READ_DATA | FILE_APPEND_DATA | SYNCHRONIZE);
  // Who may add to a log need not be allowed to read it.
  if (!file.IsOpen() && GetLastError() == ERROR_ACCESS_DENIED) {
    file = OpenFor(path, FILE_APPEND_DATA | SYNCHRONIZE);
  }
  if (!file.IsOpen()) throw LastFileError();
  if (GetFileType(file.Handle()) != FILE_TYPE_DISK) throw FileError(EINVAL);
  return file;
}

// False when somebody keeps the lock, or the file system knows none.
bool Lock(const WindowsFile& file) {
  const auto end = std::chrono::steady_clock::now() + kLongestWait;
  for (;;) {
    OVERLAPPED place{};
    place.OffsetHigh = kLockedPlace;
    if (LockFileEx(file.Handle(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                   &place) != FALSE) {
      return true;
    }
    const DWORD error = GetLastError();
    if (error != ERROR_LOCK_VIOLATION && error != ERROR_IO_PENDING) return false;
    if (std::chrono::steady_clock::now() >= end) return false;
    std::this_thread::sleep_for(kPause);
  }
}

// Whether the file is empty or ends with a whole line, as far as it can be seen.
bool EndsWithLine(const WindowsFile& file) {
  LARGE_INTEGER size{};
  if (GetFileSizeEx(file.Handle(), &size) == FALSE) return false;
  if (size.QuadPart == 0) return true;
  LARGE_INTEGER last{};
  last.QuadPart = size.QuadPart - 1;
  char byte = 0;
  DWORD count = 0;
  return SetFilePointerEx(file.Handle(), last, nullptr, FILE_BEGIN) != FALSE &&
         ReadFile(file.Handle(), &byte, 1, &count, nullptr) != FALSE && count == 1 && byte == '\n';
}

}  // namespace

void AppendLine(const std::string& path, std::string_view line) {
  const WindowsFile file = Open(path);
  std::string bytes;
  // An empty line is none; without a lock, or without sight of the end, it is the price of safety.
  if (!Lock(file) || !EndsWithLine(file)) bytes = "\n";
  bytes += line;
  WriteBytes(file, bytes);
}

}  // namespace td
