// Rows of values, packed: a long result is held in memory whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "memory_rows/column_names.h"
#include "platform/value.h"

namespace td {

// Sixteen bytes a value; texts and bytes lie one behind the other in one block. Filled once, value
// by value in the order of the columns, then read.
class MemoryRows {
 public:
  // `expectedRows` and `expectedBytes` are what room is made for; any number of both can be added.
  explicit MemoryRows(ColumnNamesRef columns, std::size_t expectedRows = 0,
                      std::size_t expectedBytes = 0);

  void AddNull() { Add(Kind::kNull, 0); }
  void AddFlag(bool flag) { Add(Kind::kFlag, flag ? 1 : 0); }
  void AddInteger(std::int64_t number) { Add(Kind::kInteger, number); }
  void AddReal(double number);
  void AddDate(Date date);
  // Bytes that are no UTF-8 become U+FFFD.
  void AddText(std::string_view text);
  void AddBytes(const void* bytes, std::size_t size);
  void Add(const Value& value);

  [[nodiscard]] const ColumnNames& Columns() const { return *columns_; }
  [[nodiscard]] std::size_t RowCount() const;
  // Bytes of all texts.
  [[nodiscard]] std::size_t ByteCount() const { return bytes_.size(); }

  // Puts a value that was added into `value`, which keeps its memory where it can.
  void Read(std::size_t row, std::size_t column, Value& value) const;

 private:
  enum class Kind : std::uint8_t { kNull, kFlag, kInteger, kReal, kDate, kText, kBytes };
  // A text's or bytes' `bits` are where it begins, its size is `length`.
  struct Cell {
    std::int64_t bits;
    std::uint64_t kind : 8;
    std::uint64_t length : 56;
  };

  void Add(Kind kind, std::int64_t bits, std::size_t length = 0) {
    cells_.push_back({bits, static_cast<std::uint64_t>(kind), length & kMaxLength});
  }
  void AddPiece(Kind kind, const char* bytes, std::size_t size);

  static constexpr std::uint64_t kMaxLength = (std::uint64_t{1} << 56U) - 1;

  ColumnNamesRef columns_;
  std::vector<Cell> cells_;
  std::vector<char> bytes_;
};

}  // namespace td
