// One open connection of the engine with its prepared statements.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "memory_rows/memory_rows.h"
#include "sql_support/read_only.h"
#include "sql_support/statement_cache.h"
#include "sqlite/file_stamp.h"

struct sqlite3;
struct sqlite3_stmt;

namespace td {

class SqliteSession {
 public:
  // Opens the existing file that a connection text names, read-only if it may not be written, and
  // reads from it once, so that a file that is no database fails here. Never creates a file.
  explicit SqliteSession(const std::string& connection);
  ~SqliteSession();
  SqliteSession(const SqliteSession&) = delete;
  SqliteSession& operator=(const SqliteSession&) = delete;

  // Runs one statement to its end, waiting a short while for a lock. Returns its rows, or nothing
  // for a statement that delivers none. No lock is held afterwards. A statement that is not allowed
  // to write and would fails before it runs.
  std::shared_ptr<const MemoryRows> Run(const std::string& sql, Access access = Access::kReadWrite);

  // Whether the path still leads to the file that was opened, and that file is as this session
  // last saw it.
  [[nodiscard]] bool Usable() const;
  // Whether the path still leads to the file that was opened.
  [[nodiscard]] bool FileInPlace() const;

  // Whether no statement has failed or left something behind in the connection, such as an open
  // transaction or a setting.
  [[nodiscard]] bool Reusable() const { return reusable_; }

 private:
  struct EngineCloser {
    void operator()(sqlite3* engine) const;
  };
  struct StatementCloser {
    void operator()(sqlite3_stmt* statement) const;
  };
  struct Prepared {
    std::unique_ptr<sqlite3_stmt, StatementCloser> handle;
    ColumnNamesRef columns;
    int preparations = 0;  // how often the engine had prepared it anew when `columns` was read
    bool leavesNothingBehind = false;
    bool mayShuffle = false;  // it asks for an order
    // The size of the last result: a run asks the same again and again.
    std::size_t lastRows = 0;
    std::size_t lastBytes = 0;
  };

  void Open();
  void ArrangeJoins(bool mayShuffle);
  [[nodiscard]] Prepared Prepare(const std::string& sql) const;
  std::shared_ptr<const MemoryRows> Step(Prepared& prepared) const;

  std::string path_;
  FileStamp stamp_;
  std::unique_ptr<sqlite3, EngineCloser> engine_;
  StatementCache<Prepared> prepared_;
  bool joinsShuffle_ = true;
  bool reusable_ = true;
};

}  // namespace td
