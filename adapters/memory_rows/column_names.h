// The names of a record set's columns, found without regard to case.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace td {

// Immutable, and shared by the record sets of one source. A lookup hashes the name once and
// allocates nothing.
class ColumnNames {
 public:
  explicit ColumnNames(std::vector<std::string> names);

  [[nodiscard]] std::size_t Size() const { return names_.size(); }
  [[nodiscard]] const std::string& Name(std::size_t index) const { return names_[index]; }

  // The first column of that name, the letters A to Z taken without regard to case.
  [[nodiscard]] std::optional<std::size_t> Find(std::string_view name) const;

 private:
  std::vector<std::string> names_;
  std::vector<std::uint32_t> slots_;  // open addressing: index + 1, 0 for a free slot
};

using ColumnNamesRef = std::shared_ptr<const ColumnNames>;

}  // namespace td
