// Statements that take effect together, or not at all: for programs that write several rows which
// belong together. The component's own statements are sent one by one.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "memory_rows/memory_rows.h"
#include "sql_support/read_only.h"

namespace td {

struct KeyColumn {
  std::string name;          // as the engine writes it
  bool isGenerated = false;  // a new row that doesn't say otherwise gets a value of its own
};

// One transaction on a connection of its own. It sees the tables as no other writer changes them:
// the others wait, or this one fails with a lock conflict.
class Transaction {
 public:
  // Undoes what isn't committed.
  virtual ~Transaction() = default;

  // Runs one statement; its rows, or nothing for one that delivers none. Fails like
  // Connection::Execute; after a failure the transaction can only be given up.
  virtual std::shared_ptr<const MemoryRows> Run(const std::string& sql) = 0;

  // The columns of a table's primary key, in its order; empty for a table without one.
  virtual std::vector<KeyColumn> PrimaryKey(const std::string& table) = 0;

  // A value as this engine reads it in a statement. Numbers of every kind come back as they were.
  [[nodiscard]] virtual std::string Literal(const Value& value) const = 0;

  // Makes all of it last. Nothing has changed if it fails, unless the connection broke in between.
  virtual void Commit() = 0;
};

// The columns of a result with a name and a number in each row, which is not 0 where it is
// generated.
[[nodiscard]] std::vector<KeyColumn> ReadKeyColumns(const MemoryRows& rows);

class TransactionalDatabase : public ReadOnlyDatabase {
 public:
  // Waits for a lock as a statement does; where the engine has one lock for all writers, it is
  // taken here. One that only reads sees the tables as they are now, whatever others write, keeps
  // no writer waiting and changes nothing.
  virtual std::unique_ptr<Transaction> Begin(const std::string& connection, Access access) = 0;
};

}  // namespace td
