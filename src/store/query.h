// A record set that the logic opens for itself.
#pragma once

#include <string>
#include <string_view>

#include "platform/platform.h"
#include "platform/run_witness.h"
#include "platform/standard_failures.h"
#include "state/print_context.h"

namespace td {

// Closed until Open has succeeded: every other use of it then fails, as it does after Close. The
// rows are released with the object at the latest. Platform and request are borrowed.
class Query {
 public:
  Query(const Platform& platform, const PrintContext& request)
      : platform_(platform), request_(request) {}

  // Opens on the request's connection text, which makes a connection of its own.
  void Open(const std::string& sql, CursorType cursor = CursorType::kUnspecified,
            LockType lock = LockType::kUnspecified) {
    rows_ = platform_.database.OpenQuery(request_.New_PromptString, sql, cursor, lock);
  }

  [[nodiscard]] bool Eof() { return Rows().Eof(); }
  [[nodiscard]] const Value& Field(std::string_view column) {
    return ReadColumn(platform_.witness, Rows(), column);
  }
  void MoveNext() { Rows().MoveNext(); }
  void Close() {
    Rows().Close();
    rows_.reset();
  }

  // The record set itself, open.
  [[nodiscard]] Recordset& Rows() {
    if (!rows_) throw ClosedFailure();
    return *rows_;
  }

 private:
  const Platform& platform_;
  const PrintContext& request_;
  RecordsetRef rows_;
};

}  // namespace td
