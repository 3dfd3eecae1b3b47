// Database access: record sets, connections and the binary stream that writes a blob to a file.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace td {

class Recordset;
using RecordsetRef = std::shared_ptr<Recordset>;

// A forward cursor over rows. It stands on the first row when it is opened, or at its end when
// there is no row. Columns are found by name without regard to case.
class Recordset {
 public:
  virtual ~Recordset() = default;

  // Whether the cursor stands behind the last row.
  virtual bool Eof() = 0;

  // The value of a column in the current row. The reference is good until the cursor moves or the
  // record set closes. Fails with kNoSuchColumn, even at the end of the rows, when there is no such
  // column; with kNoCurrentRow when the column exists and the cursor stands at the end.
  virtual const Value& Field(std::string_view column) = 0;

  // The same for a column that may be absent, which is no failure: nothing then. A record set that
  // doesn't say otherwise asks Field; where that tells of a lock, Find fails with it.
  virtual const Value* Find(std::string_view column);

  // Fail with kNoCurrentRow: MoveNext at the end, MoveFirst when there is no row.
  virtual void MoveNext() = 0;
  virtual void MoveFirst() = 0;

  // Gives up the rows; every later use fails with kObjectClosed.
  virtual void Close() = 0;

  // A second cursor over the same rows, standing on the first row. Fails when the source can't.
  virtual RecordsetRef Clone() = 0;
};

// One connection on which statements run one by one, with no transaction. It closes when it dies.
class Connection {
 public:
  virtual ~Connection() = default;

  // Runs one statement. Text after the end of the statement is a failure and nothing is executed.
  virtual void Execute(const std::string& sql) = 0;
};

enum class CursorType { kUnspecified = -1, kKeyset = 1 };
enum class LockType { kUnspecified = -1, kPessimistic = 2 };

// Every failure carries a description in the engine's words; a busy or locked database fails, after
// a short wait, with a description that contains 锁, and nothing else does.
class Database {
 public:
  virtual ~Database() = default;

  // Opens a record set on a text command. `connection` is the caller's connection text.
  virtual RecordsetRef OpenQuery(const std::string& connection, const std::string& sql,
                                 CursorType cursor = CursorType::kUnspecified,
                                 LockType lock = LockType::kUnspecified) = 0;

  // Opens a connection with empty user and password texts.
  virtual std::unique_ptr<Connection> Connect(const std::string& connection) = 0;
};

}  // namespace td
