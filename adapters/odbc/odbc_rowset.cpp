#include "odbc/odbc_rowset.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "text_encoding/utf16.h"

namespace td {
namespace {

constexpr std::size_t kRows = 32;  // of a block: more than most bands have items
constexpr SQLULEN kLongestText = 1000;
constexpr SQLULEN kLongestNumber = 80;

bool IsExactNumber(SQLSMALLINT type) {
  return type == SQL_BIGINT || type == SQL_DECIMAL || type == SQL_NUMERIC;
}

template <typename Number>
Number Read(const std::byte* value) {
  Number number{};
  std::memcpy(&number, value, sizeof(number));
  return number;
}

// Numbers travel to the driver manager as pointers.
void PutRowsOfABlock(SQLHSTMT statement, std::uintptr_t count) {
  SQLSetStmtAttrW(statement, SQL_ATTR_ROW_ARRAY_SIZE,
                  reinterpret_cast<SQLPOINTER>(count),  // NOLINT(performance-no-int-to-ptr)
                  SQL_IS_UINTEGER);
}

}  // namespace

OdbcRowset::Room OdbcRowset::RoomFor(const OdbcColumn& column, TextForm texts) {
  constexpr std::size_t kSignPointAndEnd = 3;
  constexpr std::size_t kBytesOfACharacter = 4;  // at most, in both forms
  const bool isKnown = column.size > 0;
  switch (column.type) {
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
      return {column.type, SQL_C_SBIGINT, sizeof(std::int64_t)};
    case SQL_BIGINT:
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return {column.type, SQL_C_CHAR,
              isKnown && column.size <= kLongestNumber ? column.size + kSignPointAndEnd : 0};
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return {column.type, SQL_C_DOUBLE, sizeof(double)};
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
      return {column.type, SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT)};
    case SQL_BIT:
      return {column.type, SQL_C_BIT, 1};
    case SQL_CHAR:
    case SQL_VARCHAR:
    case SQL_WCHAR:
    case SQL_WVARCHAR:
    case SQL_LONGVARCHAR:  // PostgreSQL's driver calls all of more than 255 characters so
    case SQL_WLONGVARCHAR: {
      const SQLSMALLINT inMemory = texts == TextForm::kUtf8 ? SQL_C_CHAR : SQL_C_WCHAR;
      return {column.type, inMemory,
              isKnown && column.size <= kLongestText ? (column.size + 1) * kBytesOfACharacter : 0};
    }
    default:
      return {column.type, SQL_C_DEFAULT, 0};
  }
}

std::unique_ptr<OdbcRowset> OdbcRowset::Bind(SQLHSTMT statement,
                                             const std::vector<OdbcColumn>& columns,
                                             TextForm texts) {
  std::vector<Room> rooms;
  for (const OdbcColumn& column : columns) {
    rooms.push_back(RoomFor(column, texts));
    if (rooms.back().size == 0) return nullptr;
    rooms.back().values.resize(rooms.back().size * kRows);
    rooms.back().lengths.resize(kRows);
  }
  std::unique_ptr<OdbcRowset> rowset(new OdbcRowset(statement));
  rowset->rooms_ = std::move(rooms);
  PutRowsOfABlock(statement, kRows);
  SQLSetStmtAttrW(statement, SQL_ATTR_ROWS_FETCHED_PTR, &rowset->fetched_, 0);
  for (std::size_t i = 0; i < rowset->rooms_.size(); ++i) {
    Room& room = rowset->rooms_[i];
    const SQLRETURN code =
        SQLBindCol(statement, static_cast<SQLUSMALLINT>(i + 1), room.inMemory, room.values.data(),
                   static_cast<SQLLEN>(room.size), room.lengths.data());
    if (!SQL_SUCCEEDED(code)) return nullptr;
  }
  return rowset;
}

OdbcRowset::~OdbcRowset() {
  SQLFreeStmt(statement_, SQL_UNBIND);
  PutRowsOfABlock(statement_, 1);
  SQLSetStmtAttrW(statement_, SQL_ATTR_ROWS_FETCHED_PTR, nullptr, 0);
}

// False for a value that has not found room.
bool OdbcRowset::Add(const Room& room, std::size_t row, MemoryRows& rows) {
  const std::byte* value = room.values.data() + row * room.size;
  const SQLLEN length = room.lengths[row];
  if (length == SQL_NULL_DATA) {
    rows.AddNull();
    return true;
  }
  const std::size_t end = room.inMemory == SQL_C_WCHAR ? sizeof(char16_t) : sizeof(char);
  const bool isText = room.inMemory == SQL_C_WCHAR || room.inMemory == SQL_C_CHAR;
  const auto bytes = static_cast<std::size_t>(length);
  if (isText && (length < 0 || bytes + end > room.size)) return false;
  const std::string_view characters(reinterpret_cast<const char*>(value), isText ? bytes : 0);
  if (room.inMemory == SQL_C_SBIGINT) {
    rows.AddInteger(Read<std::int64_t>(value));
  } else if (room.inMemory == SQL_C_DOUBLE) {
    rows.Add(Real(Read<double>(value), room.type == SQL_REAL));
  } else if (room.inMemory == SQL_C_TYPE_TIMESTAMP) {
    rows.Add(DateOf(Read<SQL_TIMESTAMP_STRUCT>(value)));
  } else if (room.inMemory == SQL_C_BIT) {
    rows.AddFlag(Read<unsigned char>(value) != 0);
  } else if (room.inMemory == SQL_C_WCHAR) {
    rows.AddText(ToUtf8({reinterpret_cast<const char16_t*>(value), bytes / sizeof(char16_t)}));
  } else if (IsExactNumber(room.type)) {
    rows.Add(ExactNumber(std::string(characters)));
  } else {
    rows.AddText(characters);
  }
  return true;
}

bool OdbcRowset::Fetch(MemoryRows& rows) {
  for (;;) {
    fetched_ = 0;
    const SQLRETURN code = SQLFetch(statement_);
    if (code == SQL_NO_DATA) return true;
    if (!SQL_SUCCEEDED(code)) throw OdbcReadError();
    for (std::size_t row = 0; row < fetched_; ++row) {
      for (const Room& room : rooms_) {
        if (!Add(room, row, rows)) return false;
      }
    }
    if (fetched_ < kRows) return true;
  }
}

}  // namespace td
