#include "memory_rows/memory_recordset.h"

#include <utility>

#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "text_encoding/text_repair.h"

namespace td {
namespace {

std::shared_ptr<const MemoryRows> CheckedRows(std::vector<std::string> columns,
                                              std::vector<std::vector<Value>> rows) {
  for (const auto& row : rows) {
    if (row.size() != columns.size()) {
      throw Failure(kInvalidCall, "记录的值的个数与列数不同。");
    }
  }
  auto names = std::make_shared<const ColumnNames>(std::move(columns));
  return std::make_shared<const MemoryRows>(MemoryRows{std::move(names), std::move(rows)});
}

}  // namespace

MemoryRecordset::MemoryRecordset(std::vector<std::string> columns,
                                 std::vector<std::vector<Value>> rows)
    : MemoryRecordset(CheckedRows(std::move(columns), std::move(rows))) {}

MemoryRecordset::MemoryRecordset(std::shared_ptr<const MemoryRows> rows) : rows_(std::move(rows)) {}

const MemoryRows& MemoryRecordset::OpenRows() const {
  if (!rows_) throw ClosedFailure();
  return *rows_;
}

bool MemoryRecordset::Eof() {
  return position_ >= OpenRows().rows.size();
}

const Value& MemoryRecordset::Field(std::string_view column) {
  const MemoryRows& rows = OpenRows();
  const auto index = rows.columns->Find(column);
  if (!index) throw NoSuchColumnFailure(ValidUtf8(column));
  if (position_ >= rows.rows.size()) throw NoCurrentRowFailure();
  return rows.rows[position_][*index];
}

void MemoryRecordset::MoveNext() {
  if (Eof()) throw NoCurrentRowFailure();
  ++position_;
}

void MemoryRecordset::MoveFirst() {
  if (OpenRows().rows.empty()) throw NoCurrentRowFailure();
  position_ = 0;
}

void MemoryRecordset::Close() {
  OpenRows();
  rows_.reset();
}

RecordsetRef MemoryRecordset::Clone() {
  OpenRows();
  return std::make_shared<MemoryRecordset>(rows_);
}

}  // namespace td
