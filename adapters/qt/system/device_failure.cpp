#include "qt/system/device_failure.h"

#include <string_view>

namespace td {

Failure DeviceFailure(int number, std::string description) {
  constexpr std::string_view kLock = "锁";
  constexpr std::string_view kTraditionalLock = "鎖";
  for (std::size_t at = description.find(kLock); at != std::string::npos;
       at = description.find(kLock, at)) {
    description.replace(at, kLock.size(), kTraditionalLock);
  }
  return {number, description};
}

}  // namespace td
