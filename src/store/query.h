// A record set that the logic opens for itself.
#pragma once

#include <string>
#include <string_view>

#include "platform/database.h"
#include "platform/standard_failures.h"
#include "state/print_context.h"

namespace td {

// Closed until Open has succeeded: every other use of it then fails, as it does after Close. The
// rows are released with the object at the latest. Database and request are borrowed.
class Query {
 public:
  Query(Database& database, const PrintContext& request) : database_(database), request_(request) {}

  // Opens on the request's connection text, which makes a connection of its own.
  void Open(const std::string& sql, CursorType cursor = CursorType::kUnspecified,
            LockType lock = LockType::kUnspecified) {
    rows_ = database_.OpenQuery(request_.New_PromptString, sql, cursor, lock);
  }

  [[nodiscard]] bool Eof() { return Rows().Eof(); }
  [[nodiscard]] const Value& Field(std::string_view column) { return Rows().Field(column); }
  void MoveNext() { Rows().MoveNext(); }
  void Close() {
    Rows().Close();
    rows_.reset();
  }

 private:
  Recordset& Rows() {
    if (!rows_) throw ClosedFailure();
    return *rows_;
  }

  Database& database_;
  const PrintContext& request_;
  RecordsetRef rows_;
};

}  // namespace td
