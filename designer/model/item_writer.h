// Writes the items of a format into their table.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "designer/model/format.h"
#include "designer/model/stored_table.h"

namespace td::designer {

// An item that is wanted, and which row of the table is it now.
struct WantedItem {
  const Item* item = nullptr;
  std::optional<std::size_t> now;
};

// The run draws the items of a band as they lie in the table, and no column says in which order. So
// what is written is read back, and where the order came out otherwise all items are written anew.
//
// In a table with a primary key an item keeps its row. In one without, rows can't be told apart,
// and a change writes all rows of the format, with the values of the application's columns.
class ItemWriter {
 public:
  // `now` is the table of the format's items in this transaction.
  ItemWriter(Transaction& transaction, Value formatId, StoredTable now);

  // The primary key's columns but the link to the format; none in a table without a key.
  [[nodiscard]] const std::vector<std::string>& KeyNames() const { return keyNames_; }

  // Makes the table hold the items, in their order within each band. Returns the rows as they stand
  // then, in the order of `wanted`. Fails when the table takes a value otherwise than it was given.
  [[nodiscard]] std::vector<StoredRow> Write(const std::vector<WantedItem>& wanted);

 private:
  [[nodiscard]] bool MayWriteChanges(const std::vector<WantedItem>& wanted) const;
  void WriteChanges(const std::vector<WantedItem>& wanted);
  void WriteOverSlots(const std::vector<StoredRow>& rows);
  void WriteAnew(const std::vector<StoredRow>& rows);
  [[nodiscard]] std::vector<StoredRow> RowsByKey() const;
  void Insert(const StoredRow& row, const StoredRow* keySource = nullptr);
  void AddNewKeys(ColumnList& columns, const StoredRow& row);
  void Delete(const StoredRow& row);
  [[nodiscard]] std::string RowCondition(const StoredRow& row) const;
  [[nodiscard]] std::string FormatCondition() const;

  Transaction& transaction_;
  Value formatId_;
  StoredTable now_;
  std::vector<KeyColumn> keys_;  // without the link to the format
  std::vector<std::string> keyNames_;
};

// Whether a table has kept a value: lengths may be rounded to a twip and numbers to single
// precision, and a text may be filled up with blanks.
[[nodiscard]] bool IsKept(const KnownColumn& column, const Value& written, const Value& stored);

// The first column that a row has not kept, or nothing.
[[nodiscard]] const KnownColumn* FirstLostColumn(std::span<const KnownColumn> columns,
                                                 const Row& written, const Row& stored);

}  // namespace td::designer
