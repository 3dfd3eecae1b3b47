// Strings in blocks of the C library.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "client/client.h"

namespace {

constexpr std::size_t kPrefix = sizeof(std::uint32_t);

}  // namespace

TdString TdMakeStringOfUnits(const TdUnit* units, std::uint32_t count) {
  if (count > (std::numeric_limits<std::uint32_t>::max() - kPrefix) / sizeof(TdUnit) - 1) {
    return nullptr;
  }
  const auto bytes = static_cast<std::uint32_t>(count * sizeof(TdUnit));
  auto* block = static_cast<char*>(std::malloc(kPrefix + bytes + sizeof(TdUnit)));
  if (block == nullptr) return nullptr;
  std::memcpy(block, &bytes, kPrefix);
  if (bytes > 0) std::memcpy(block + kPrefix, units, bytes);
  std::memset(block + kPrefix + bytes, 0, sizeof(TdUnit));
  return reinterpret_cast<TdString>(block + kPrefix);
}

void TdFreeString(TdString string) {
  if (string != nullptr) std::free(reinterpret_cast<char*>(string) - kPrefix);
}

std::uint32_t TdStringLength(TdString string) {
  if (string == nullptr) return 0;
  std::uint32_t bytes = 0;
  std::memcpy(&bytes, reinterpret_cast<const char*>(string) - kPrefix, kPrefix);
  return static_cast<std::uint32_t>(bytes / sizeof(TdUnit));
}
