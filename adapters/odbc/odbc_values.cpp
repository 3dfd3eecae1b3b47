#include "odbc/odbc_values.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string_view>

#include "text/calendar.h"
#include "text/conversions.h"
#include "text_encoding/text_repair.h"
#include "text_encoding/utf16.h"

namespace td {
namespace {

// Units of the buffer that most values fit into.
constexpr std::size_t kFirstPiece = 512;

// Fetches a column of characters or bytes of any length: a first piece, then all the rest at once
// where the driver tells its length. A driver needs room for a terminator behind characters. False
// for Null.
template <typename Units>
bool ReadLong(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type, std::size_t terminator,
              Units& result) {
  using Unit = typename Units::value_type;
  std::array<Unit, kFirstPiece + 1> first;
  Units rest;
  Unit* piece = first.data();
  std::size_t room = kFirstPiece;
  for (;;) {
    SQLLEN bytes = 0;  // of all that had not been fetched before this call
    const SQLRETURN code =
        SQLGetData(statement, column, type, piece,
                   static_cast<SQLLEN>((room + terminator) * sizeof(Unit)), &bytes);
    if (code == SQL_NO_DATA) return true;
    if (!SQL_SUCCEEDED(code)) throw OdbcReadError();
    if (bytes == SQL_NULL_DATA) return false;
    const bool known = bytes != SQL_NO_TOTAL;
    const std::size_t left = known ? static_cast<std::size_t>(bytes) / sizeof(Unit) : 0;
    const bool whole = known && left <= room;
    result.insert(result.end(), piece, piece + (whole ? left : room));
    if (whole) return true;
    room = known ? left - room : 2 * room;
    rest.resize(room + 1);
    piece = rest.data();
  }
}

template <typename Number>
bool ReadFixed(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type, Number& number) {
  SQLLEN length = 0;
  const SQLRETURN code =
      SQLGetData(statement, column, type, &number, static_cast<SQLLEN>(sizeof(number)), &length);
  if (!SQL_SUCCEEDED(code)) throw OdbcReadError();
  return length != SQL_NULL_DATA;
}

Value ReadText(SQLHSTMT statement, SQLUSMALLINT column, TextForm form) {
  if (form == TextForm::kUtf8) {
    std::string text;
    if (!ReadLong(statement, column, SQL_C_CHAR, 1, text)) return Null{};
    return ValidUtf8(text);
  }
  std::u16string text;
  if (!ReadLong(statement, column, SQL_C_WCHAR, 1, text)) return Null{};
  return ToUtf8(text);
}

Value ReadBytes(SQLHSTMT statement, SQLUSMALLINT column) {
  Bytes bytes;
  if (!ReadLong(statement, column, SQL_C_BINARY, 0, bytes)) return Null{};
  return bytes;
}

Value ReadInteger(SQLHSTMT statement, SQLUSMALLINT column) {
  std::int64_t number = 0;
  if (!ReadFixed(statement, column, SQL_C_SBIGINT, number)) return Null{};
  return number;
}

Value ReadExactNumber(SQLHSTMT statement, SQLUSMALLINT column) {
  std::string digits;
  if (!ReadLong(statement, column, SQL_C_CHAR, 1, digits)) return Null{};
  return ExactNumber(digits);
}

Value ReadReal(SQLHSTMT statement, SQLUSMALLINT column, bool isSingle) {
  double number = 0;
  if (!ReadFixed(statement, column, SQL_C_DOUBLE, number)) return Null{};
  return Real(number, isSingle);
}

Value ReadDate(SQLHSTMT statement, SQLUSMALLINT column) {
  SQL_TIMESTAMP_STRUCT stamp{};
  if (!ReadFixed(statement, column, SQL_C_TYPE_TIMESTAMP, stamp)) return Null{};
  return DateOf(stamp);
}

// Reads hh:mm:ss, with or without a fraction; nothing if that is no time of a day.
std::optional<double> PartOfDay(std::string_view text) {
  if (text.size() < 8 || text[2] != ':' || text[5] != ':') return std::nullopt;
  const char* const at = text.data();
  const char* const end = at + text.size();
  unsigned hour = 0;
  unsigned minute = 0;
  double second = 0;
  const bool isRead = std::from_chars(at, at + 2, hour).ptr == at + 2 &&
                      std::from_chars(at + 3, at + 5, minute).ptr == at + 5 &&
                      std::from_chars(at + 6, end, second).ptr == end;
  if (!isRead || hour > 23) return std::nullopt;
  return (hour * 3600.0 + minute * 60.0 + second) / kSecondsPerDay;
}

// A MariaDB time can be a span of more than a day or below zero, for which drivers have no
// structure.
Value ReadTime(SQLHSTMT statement, SQLUSMALLINT column) {
  std::string text;
  if (!ReadLong(statement, column, SQL_C_CHAR, 1, text)) return Null{};
  const std::optional<double> partOfDay = PartOfDay(text);
  if (!partOfDay) return text;
  return Date{*partOfDay};
}

Value ReadBit(SQLHSTMT statement, SQLUSMALLINT column) {
  unsigned char bit = 0;
  if (!ReadFixed(statement, column, SQL_C_BIT, bit)) return Null{};
  return bit != 0;
}

// PostgreSQL's driver calls flags texts, as long as "false", unless its settings say otherwise.
bool MayBeFlag(SQLSMALLINT type, SQLULEN size) {
  constexpr SQLULEN kLengthOfFalse = 5;
  return (type == SQL_VARCHAR || type == SQL_WVARCHAR) && size == kLengthOfFalse;
}

bool IsFlag(SQLHSTMT statement, SQLUSMALLINT column) {
  std::array<char16_t, 64> name{};
  SQLSMALLINT bytes = 0;
  const SQLRETURN code = SQLColAttributeW(statement, column, SQL_DESC_TYPE_NAME, name.data(),
                                          static_cast<SQLSMALLINT>(sizeof(name)), &bytes, nullptr);
  return SQL_SUCCEEDED(code) && std::u16string_view(name.data()) == u"bool";
}

}  // namespace

Value ExactNumber(const std::string& digits) {
  const char* const end = digits.data() + digits.size();
  std::int64_t whole = 0;
  if (const auto read = std::from_chars(digits.data(), end, whole);
      read.ec == std::errc() && read.ptr == end) {
    return whole;
  }
  double real = 0;
  const auto read = std::from_chars(digits.data(), end, real);
  if (read.ec == std::errc() && read.ptr == end && std::isfinite(real)) return real;
  return digits;
}

Value Real(double number, bool isSingle) {
  if (std::isnan(number)) return Null{};
  return isSingle ? WidenSingle(static_cast<float>(number)) : number;
}

Value DateOf(const SQL_TIMESTAMP_STRUCT& stamp) {
  const std::chrono::sys_days day = std::chrono::year(stamp.year) / stamp.month / stamp.day;
  const double seconds = stamp.hour * 3600.0 + stamp.minute * 60.0 + stamp.second +
                         static_cast<double>(stamp.fraction) / 1e9;
  return Date{MomentSerial(DaySerial(day), seconds / kSecondsPerDay)};
}

std::vector<OdbcColumn> ReadColumns(SQLHSTMT statement) {
  SQLSMALLINT count = 0;
  if (!SQL_SUCCEEDED(SQLNumResultCols(statement, &count))) throw OdbcReadError();
  std::vector<OdbcColumn> columns(static_cast<std::size_t>(count));
  for (std::size_t i = 0; i < columns.size(); ++i) {
    std::array<char16_t, 512> name{};
    SQLSMALLINT length = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    SQLULEN& size = columns[i].size;
    const SQLRETURN code = SQLDescribeColW(statement, static_cast<SQLUSMALLINT>(i + 1),
                                           reinterpret_cast<SQLWCHAR*>(name.data()),
                                           static_cast<SQLSMALLINT>(name.size()), &length,
                                           &columns[i].type, &size, &digits, &nullable);
    if (!SQL_SUCCEEDED(code)) throw OdbcReadError();
    columns[i].name = ToUtf8(name.data());
    if (MayBeFlag(columns[i].type, size) && IsFlag(statement, static_cast<SQLUSMALLINT>(i + 1))) {
      columns[i].type = SQL_BIT;
    }
  }
  return columns;
}

Value ReadValue(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type, TextForm texts) {
  switch (type) {
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
      return ReadInteger(statement, column);
    case SQL_BIGINT:  // unsigned ones may need more than 64 bits
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return ReadExactNumber(statement, column);
    case SQL_REAL:
      return ReadReal(statement, column, true);
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return ReadReal(statement, column, false);
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
      return ReadDate(statement, column);
    case SQL_TYPE_TIME:
      return ReadTime(statement, column);
    case SQL_BIT:
      return ReadBit(statement, column);
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
      return ReadBytes(statement, column);
    default:
      return ReadText(statement, column, texts);
  }
}

}  // namespace td
