#include "memory_rows/column_names.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace td {
namespace {

unsigned char Lower(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + ('a' - 'A')) : byte;
}

// FNV-1a over the lower-case letters.
std::size_t Hash(std::string_view name) {
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : name) hash = (hash ^ Lower(c)) * 1099511628211U;
  return static_cast<std::size_t>(hash ^ (hash >> 32U));
}

bool SameName(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
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
