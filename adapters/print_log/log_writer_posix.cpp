#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "files/descriptor.h"
#include "files/file_error.h"
#include "files/written_bytes.h"
#include "print_log/log_writer.h"

namespace td {
namespace {

constexpr std::chrono::seconds kLongestWait(2);
constexpr std::chrono::milliseconds kPause(5);

Descriptor Open(const std::string& path) {
  // Nobody waits for a reader of a pipe.
  constexpr int kFlags = O_RDWR | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
  Descriptor file(open(path.c_str(), kFlags, S_IRUSR | S_IWUSR));
  // Who may add to a log need not be allowed to read it.
  if (!file.IsOpen() && errno == EACCES) {
    file = Descriptor(open(path.c_str(), (kFlags & ~O_RDWR) | O_WRONLY, S_IRUSR | S_IWUSR));
  }
  if (!file.IsOpen()) throw FileError(errno);
  struct stat state {};
  if (fstat(file.Number(), &state) != 0) throw FileError(errno);
  if (!S_ISREG(state.st_mode)) throw FileError(EINVAL);
  return file;
}

// False when somebody keeps the lock, or the file system knows none.
bool Lock(const Descriptor& file) {
  const auto end = std::chrono::steady_clock::now() + kLongestWait;
  while (flock(file.Number(), LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) return false;
    if (std::chrono::steady_clock::now() >= end) return false;
    std::this_thread::sleep_for(kPause);
  }
  return true;
}

// Whether the file is empty or ends with a whole line, as far as it can be seen.
bool EndsWithLine(const Descriptor& file) {
  struct stat state {};
  if (fstat(file.Number(), &state) != 0) return false;
  if (state.st_size == 0) return true;
  char last = 0;
  return pread(file.Number(), &last, 1, state.st_size - 1) == 1 && last == '\n';
}

}  // namespace

void AppendLine(const std::string& path, std::string_view line) {
  Descriptor file = Open(path);
  std::string bytes;
  // An empty line is none; without a lock, or without sight of the end, it is the price of safety.
  if (!Lock(file) || !EndsWithLine(file)) bytes = "\n";
  bytes += line;
  WriteBytes(file, bytes);
  if (!file.Close()) throw FileError(errno);
}

}  // namespace td
