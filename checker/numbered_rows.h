// Rows that know which of them they stand on.
#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "platform/database.h"

namespace td::checker {

// Another cursor, counted. Numbers begin with 1, on the row on which the other one stands.
class NumberedRows : public Recordset {
 public:
  explicit NumberedRows(RecordsetRef rows) : rows_(std::move(rows)) {}

  [[nodiscard]] int Number() const { return number_; }

  bool Eof() override { return rows_->Eof(); }
  const Value& Field(std::string_view column) override { return rows_->Field(column); }
  const Value* Find(std::string_view column) override { return rows_->Find(column); }
  void MoveNext() override {
    rows_->MoveNext();
    ++number_;
  }
  void MoveFirst() override {
    rows_->MoveFirst();
    number_ = 1;
  }
  void Close() override { rows_->Close(); }
  RecordsetRef Clone() override { return std::make_shared<NumberedRows>(rows_->Clone()); }

 private:
  RecordsetRef rows_;
  int number_ = 1;
};

// 0 where the rows aren't counted.
[[nodiscard]] inline int NumberOf(const Recordset& rows) {
  const auto* numbered = dynamic_cast<const NumberedRows*>(&rows);
  return numbered == nullptr ? 0 : numbered->Number();
}

}  // namespace td::checker
