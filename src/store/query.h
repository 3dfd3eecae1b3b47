// A record set that the logic opens for itself.
#pragma once

#include <string>
#include <string_view>

#include "platform/platform.h"
#include "platform/standard_failures.h"
#include "service/print_context.h"

namespace td {

// Closed until Open has succeeded: every other use of it then fails, as it does after Close. The
// rows are released with the object at the latest.
class Query {
 public:
  // Opens on the context's connection text, which makes a connection of its own.
  void Open(Platform& platform, const std::string& sql,
            CursorType cursor = CursorType::kUnspecified, LockType lock = LockType::kUnspecified) {
    rows_ = platform.database.OpenQuery(Context().New_PromptString, sql, cursor, lock);
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

  RecordsetRef rows_;
};

}  // namespace td
