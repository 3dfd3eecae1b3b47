// Fetches a result in blocks of rows.
#pragma once

#include <sql.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "memory_rows/memory_rows.h"
#include "odbc/odbc_values.h"

namespace td {

// Room for a block of rows that the driver fills at once, where asking it for one value after the
// other costs several times as much. It stays bound to a prepared statement from one run to the
// next.
class OdbcRowset {
 public:
  // Binds the columns of a statement, which lives as long. Nothing where a value may be longer than
  // there is room for.
  [[nodiscard]] static std::unique_ptr<OdbcRowset> Bind(SQLHSTMT statement,
                                                        const std::vector<OdbcColumn>& columns,
                                                        TextForm texts);
  ~OdbcRowset();
  OdbcRowset(const OdbcRowset&) = delete;
  OdbcRowset& operator=(const OdbcRowset&) = delete;

  // Adds all rows of the statement's result. False if a value was longer than its column can be by
  // the driver's word: the result then has to be fetched otherwise, from its beginning. Fails with
  // OdbcReadError.
  [[nodiscard]] bool Fetch(MemoryRows& rows);

 private:
  struct Room {
    SQLSMALLINT type;      // of the column
    SQLSMALLINT inMemory;  // in which the driver writes it
    std::size_t size;      // bytes of one value; 0: it can't be bound
    std::vector<std::byte> values{};
    std::vector<SQLLEN> lengths{};  // or SQL_NULL_DATA
  };

  explicit OdbcRowset(SQLHSTMT statement) : statement_(statement) {}
  [[nodiscard]] static Room RoomFor(const OdbcColumn& column, TextForm texts);
  [[nodiscard]] static bool Add(const Room& room, std::size_t row, MemoryRows& rows);

  SQLHSTMT statement_;
  std::vector<Room> rooms_;
  SQLULEN fetched_ = 0;
};

}  // namespace td
