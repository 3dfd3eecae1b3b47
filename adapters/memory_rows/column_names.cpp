#include "memory_rows/column_names.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace td {
namespace {

unsigned char Lower(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + ('a' - 'A')) : byte;
}

// Of the length and of the first and last bytes, in which capitals and small letters have one
// value: what tells the columns of a table apart, at the cost of a few instructions.
std::size_t Hash(std::string_view name) {
  constexpr std::uint64_t kWithoutCase = 0x2020202020202020U;
  std::uint64_t first = 0;
  std::uint64_t last = 0;
  if (name.size() >= sizeof(first)) {
    std::memcpy(&first, name.data(), sizeof(first));
    std::memcpy(&last, name.data() + name.size() - sizeof(last), sizeof(last));
  } else if (constexpr std::size_t kHalf = sizeof(first) / 2; name.size() >= kHalf) {
    std::memcpy(&first, name.data(), kHalf);
    std::memcpy(&last, name.data() + name.size() - kHalf, kHalf);
  } else {
    for (const char c : name) first = first << 8U | static_cast<unsigned char>(c);
  }
  std::uint64_t hash = (first | kWithoutCase) * 0x9E3779B97F4A7C15U;
  hash = (hash ^ (last | kWithoutCase) ^ name.size()) * 0xC2B2AE3D27D4EB4FU;
  return static_cast<std::size_t>(hash ^ (hash >> 32U));
}

bool SameName(std::string_view left, std::string_view right) {
  return left == right || std::equal(left.begin(), left.end(), right.begin(), right.end(),
                                     [](char a, char b) { return Lower(a) == Lower(b); });
}

}  // namespace

ColumnNames::ColumnNames(std::vector<std::string> names)
    : names_(std::move(names)), slots_(std::bit_ceil(2 * names_.size() + 1)) {
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t index = 0; index < names_.size(); ++index) {
    if (Find(names_[index])) continue;
    std::size_t slot = Hash(names_[index]) & mask;
    while (slots_[slot] != 0) slot = (slot + 1) & mask;
    slots_[slot] = static_cast<std::uint32_t>(index + 1);
  }
}

std::optional<std::size_t> ColumnNames::Find(std::string_view name) const {
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t slot = Hash(name) & mask; slots_[slot] != 0; slot = (slot + 1) & mask) {
    const std::size_t index = slots_[slot] - 1;
    if (SameName(names_[index], name)) return index;
  }
  return std::nullopt;
}

}  // namespace td
