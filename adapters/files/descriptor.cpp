#include "files/descriptor.h"

#include <poll.h>
#include <pthread.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "files/file_error.h"

namespace td {
namespace {

// The signals with which the system answers a write that can't succeed would end the program that
// the component is a part of. They are held back and taken away again; the write's result tells.
class HeldSignals {
 public:
  HeldSignals() {
    sigset_t held;
    sigemptyset(&held);
    for (const int signal : kSignals) sigaddset(&held, signal);
    sigpending(&pendingBefore_);
    pthread_sigmask(SIG_BLOCK, &held, &former_);
  }
  ~HeldSignals() {
    for (const int signal : kSignals) {
      if (sigismember(&pendingBefore_, signal) == 0) Take(signal);
    }
    pthread_sigmask(SIG_SETMASK, &former_, nullptr);
  }
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;

 private:
  static constexpr std::array<int, 2> kSignals = {SIGPIPE, SIGXFSZ};

  static void Take(int signal) {
    sigset_t one;
    sigemptyset(&one);
    sigaddset(&one, signal);
    constexpr timespec kNoWait{};
    while (sigtimedwait(&one, nullptr, &kNoWait) < 0 && errno == EINTR) continue;
  }

  sigset_t pendingBefore_{};
  sigset_t former_{};
};

// 0, or the system's error.
int WriteAll(int file, std::string_view bytes) {
  const HeldSignals held;
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno == EAGAIN) {
      pollfd ready{file, POLLOUT, 0};
      poll(&ready, 1, -1);
    } else if (errno != EINTR) {
      return errno;
    }
  }
  return 0;
}

}  // namespace

void WriteBytes(const Descriptor& file, std::string_view bytes) {
  const int error = WriteAll(file.Number(), bytes);
  if (error != 0) throw FileError(error);
}

}  // namespace td
