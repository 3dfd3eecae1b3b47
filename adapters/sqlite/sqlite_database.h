// The embedded database: SQLite files.
#pragma once

#include <memory>
#include <string>

#include "sql_support/transaction.h"

namespace td {

class SqliteSession;
template <typename Session>
class SessionPool;

// Connection texts are "sqlite:PATH" and "Provider=SQLite;Data Source=PATH"; see DatabasePath in
// sqlite/connection_text.h. The file must exist: opening never creates one. A relative path is
// taken from the directory that is current when the file is opened.
//
// A query's rows are fetched whole before OpenQuery returns, and clones share them: a cursor that
// stayed in the database would hold a read lock, and keep every writer out, while a page is drawn
// or a preview is looked at. So a record set is a snapshot, and the cursor and lock types, which
// ask for less, change nothing.
//
// Whole numbers, reals, texts, blobs and Null keep the kind in which they are stored, whatever the
// column's declared type: a date stored as text comes back as that text. Bytes in a text that are
// no UTF-8 become U+FFFD. Of two columns with one name the first is found.
//
// The statements' dialect: two-argument isnull, left(text, n), and text only in single quotes;
// double quotes, backquotes and brackets stand around names. A statement that delivers no rows,
// opened as a query, is carried out and leaves a closed record set.
//
// A database that is locked by another user is waited for about 200 milliseconds; the description
// of the failure then contains 锁. In any other description that character is replaced by 鎖.
//
// Connections and prepared statements are kept and used again, unless the file was changed by
// others, replaced or deleted in between. Calls may come from several threads. A process that forks
// makes a new SqliteDatabase in the child.
class SqliteDatabase final : public TransactionalDatabase {
 public:
  SqliteDatabase();
  ~SqliteDatabase() override;

  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql,
                         CursorType cursor = CursorType::kUnspecified,
                         LockType lock = LockType::kUnspecified) override;
  RecordsetRef OpenReadOnly(const std::string& connection, const std::string& sql) override;
  // A file that is deleted or replaced afterwards makes Execute fail.
  std::unique_ptr<Connection> Connect(const std::string& connection) override;
  std::unique_ptr<Transaction> Begin(const std::string& connection, Access access) override;

 private:
  RecordsetRef Open(const std::string& connection, const std::string& sql, Access access);

  std::shared_ptr<SessionPool<SqliteSession>> pool_;
};

}  // namespace td
