#include "platform/lock_character.h"

#include <string_view>

namespace td {
namespace {

constexpr std::string_view kLock = "锁";
constexpr std::string_view kTraditional = "鎖";
static_assert(kLock.size() == kTraditional.size());

}  // namespace

bool IsLockConflict(const Failure& failure) {
  return failure.Description().find(kLock) != std::string::npos;
}

std::string WithoutLockCharacter(std::string text) {
  for (auto at = text.find(kLock); at != std::string::npos; at = text.find(kLock, at)) {
    text.replace(at, kLock.size(), kTraditional);
  }
  return text;
}

}  // namespace td
