// Record sets over rows that lie in memory, for callers that compute their print data and for
// adapters that fetch a result whole.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "memory_rows/memory_rows.h"
#include "platform/database.h"
#include "platform/value.h"

namespace td {

// A cursor over rows that it shares with its clones: a clone copies no row and lives on when the
// record set it came from is closed. Where two columns have one name, the first is found.
class MemoryRecordset final : public Recordset {
 public:
  // Each row holds one value a column, in the order of the columns. Fails with kInvalidCall when a
  // row is longer or shorter than the list of columns.
  MemoryRecordset(std::vector<std::string> columns, const std::vector<std::vector<Value>>& rows);

  // Without rows (an empty pointer) the record set is closed from the start: what a statement that
  // delivers no rows leaves behind.
  explicit MemoryRecordset(std::shared_ptr<const MemoryRows> rows);

  bool Eof() override;
  const Value& Field(std::string_view column) override;
  const Value* Find(std::string_view column) override;
  void MoveNext() override;
  // Fails with kNoCurrentRow when there is no row at all.
  void MoveFirst() override;
  void Close() override;
  RecordsetRef Clone() override;

  // Nothing when the record set is closed.
  [[nodiscard]] const ColumnNames* Columns() const { return rows_ ? &rows_->Columns() : nullptr; }

 private:
  static constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);
  // A value that was asked for, unpacked, and the row that it stands in.
  struct Unpacked {
    std::size_t row = kNoRow;
    Value value{};
  };

  const MemoryRows& OpenRows() const;

  std::shared_ptr<const MemoryRows> rows_;  // empty: closed
  std::size_t rowCount_ = 0;
  std::size_t position_ = 0;
  std::vector<Unpacked> unpacked_;  // one for each column
};

}  // namespace td
