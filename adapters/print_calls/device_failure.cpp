#include "print_calls/device_failure.h"

#include <utility>

#include "platform/standard_failures.h"

namespace td {

Failure DeviceFailure(int number, std::string description) {
  return {number, WithoutLockCharacter(std::move(description))};
}

}  // namespace td
