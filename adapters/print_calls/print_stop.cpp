#include "print_calls/print_stop.h"

#include <exception>

#include "platform/standard_failures.h"

namespace td {

void PrintStop::Begin() {
  const std::scoped_lock lock(mutex_);
  state_ = State::kRunning;
}

void PrintStop::End() {
  const std::scoped_lock lock(mutex_);
  state_ = State::kIdle;
}

void PrintStop::Ask(const std::string& reason) {
  const std::scoped_lock lock(mutex_);
  if (state_ != State::kRunning) return;
  reason_ = WithoutLockCharacter(reason);
  state_ = State::kAsked;
}

void PrintStop::Check() const {
  if (state_ != State::kAsked) return;
  const std::scoped_lock lock(mutex_);
  throw Failure(kInvalidCall, reason_);
}

void PrintStop::AskByCurrent() {
  try {
    throw;
  } catch (const std::exception& failure) {
    Ask(failure.what());
  } catch (...) {
    Ask("打印被调用程序取消。");
  }
}

}  // namespace td
