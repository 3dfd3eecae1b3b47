#include <array>
#include <cstdio>
#include <cstring>

#include "client/registration.h"

namespace td {

std::string TextOfGuid(const TdGuid& id) {
  constexpr std::size_t kLength = 38;
  std::array<char, kLength + 1> text{};
  const auto rest = [&id](std::size_t i) { return static_cast<unsigned>(id.rest[i]); };
  std::snprintf(text.data(), text.size(), "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                static_cast<unsigned>(id.first), static_cast<unsigned>(id.second),
                static_cast<unsigned>(id.third), rest(0), rest(1), rest(2), rest(3), rest(4),
                rest(5), rest(6), rest(7));
  return text.data();
}

bool SameGuid(const TdGuid& left, const TdGuid& right) {
  return std::memcmp(&left, &right, sizeof left) == 0;
}

}  // namespace td
