#include "service/request.h"

#include <atomic>

#include "platform/standard_failures.h"

namespace td {
namespace {

std::atomic<bool> isRunning = false;

}  // namespace

PrintContext& Context() {
  static PrintContext context;
  return context;
}

Turn::Turn(const Platform& platform) {
  platform.windows.CheckThread();
  if (isRunning.exchange(true)) throw RequestRunsFailure();
}

Turn::~Turn() {
  isRunning = false;
}

}  // namespace td
