#include "memory_rows/memory_recordset.h"

#include <utility>

#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "text_encoding/text_repair.h"

namespace td {
namespace {

std::shared_ptr<const MemoryRows> PackedRows(std::vector<std::string> columns,
                                             const std::vector<std::vector<Value>>& rows) {
  auto packed = std::make_shared<MemoryRows>(
      std::make_shared<const ColumnNames>(std::move(columns)), rows.size());
  for (const auto& row : rows) {
    if (row.size() != packed->Columns().Size()) {
      throw Failure(kInvalidCall, "记录的值的个数与列数不同。");
    }
    for (const Value& value : row) packed->Add(value);
  }
  return packed;
}

}  // namespace

MemoryRecordset::MemoryRecordset(std::vector<std::string> columns,
                                 const std::vector<std::vector<Value>>& rows)
    : MemoryRecordset(PackedRows(std::move(columns), rows)) {}

MemoryRecordset::MemoryRecordset(std::shared_ptr<const MemoryRows> rows)
    : rows_(std::move(rows)), rowCount_(rows_ ? rows_->RowCount() : 0) {
  if (rows_) unpacked_.resize(rows_->Columns().Size());
}

const MemoryRows& MemoryRecordset::OpenRows() const {
  if (!rows_) throw ClosedFailure();
  return *rows_;
}

bool MemoryRecordset::Eof() {
  OpenRows();
  return position_ >= rowCount_;
}

const Value& MemoryRecordset::Field(std::string_view column) {
  const Value* value = Find(column);
  if (value == nullptr) throw NoSuchColumnFailure(ValidUtf8(column));
  return *value;
}

const Value* MemoryRecordset::Find(std::string_view column) {
  const MemoryRows& rows = OpenRows();
  const auto index = rows.Columns().Find(column);
  if (!index) return nullptr;
  if (position_ >= rowCount_) throw NoCurrentRowFailure();
  Unpacked& unpacked = unpacked_[*index];
  if (unpacked.row != position_) {
    rows.Read(position_, *index, unpacked.value);
    unpacked.row = position_;
  }
  return &unpacked.value;
}

void MemoryRecordset::MoveNext() {
  if (Eof()) throw NoCurrentRowFailure();
  ++position_;
}

void MemoryRecordset::MoveFirst() {
  OpenRows();
  if (rowCount_ == 0) throw NoCurrentRowFailure();
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
