#include "service/request.h"

#include <atomic>

#include "platform/standard_failures.h"

namespace td {
namespace {

std::atomic<bool> isRunning = false;

}  // namespace

Request::Request(const Platform& platform) {
  platform.windows.CheckThread();
  if (isRunning.exchange(true)) throw RequestRunsFailure();
}

Request::~Request() {
  isRunning = false;
}

}  // namespace td
