// Reads the current row of a driver's result.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <string>
#include <vector>

#include "platform/value.h"

namespace td {

struct OdbcColumn {
  std::string name;
  SQLSMALLINT type = 0;
  SQLULEN size = 0;  // characters or digits at most, as the driver says; 0 if it doesn't

  bool operator==(const OdbcColumn&) const = default;
};

// The columns of a statement's result; none when it delivers no rows.
[[nodiscard]] std::vector<OdbcColumn> ReadColumns(SQLHSTMT statement);

// In what form a driver hands out texts.
enum class TextForm { kUtf16, kUtf8 };

// The value of a column, from 1, in the row last fetched; each column once, in order.
//   whole numbers, and exact ones without a point   whole number, if 64 bits hold it
//   other exact numbers, floating ones              real (at 7 digits where the type is single)
//   dates and times                                 date; a time of day alone lies on day 0
//   bits and PostgreSQL's booleans                  flag
//   bytes                                           bytes
//   all else, and a time that is none of a day      text
// Fails with the driver's OdbcReadError.
[[nodiscard]] Value ReadValue(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type,
                              TextForm texts);

// The same values from what a driver hands out of a column.
[[nodiscard]] Value ExactNumber(const std::string& digits);
[[nodiscard]] Value Real(double number, bool isSingle);
[[nodiscard]] Value DateOf(const SQL_TIMESTAMP_STRUCT& stamp);

// A read failed; the statement's diagnosis says why.
struct OdbcReadError {};

}  // namespace td
