// A database that answers what a run asks about one format from rows in memory.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "checker/format_rows.h"
#include "memory_rows/memory_rows.h"
#include "platform/database.h"
#include "recording/memory_tables.h"

namespace td::checker {

// The column of an item, as a run reads it, that holds its index in FormatRows.
inline constexpr std::string_view kItemIndex = "FCheckedItem";

// Statements on other tables than the format's go to `others`, if there is one; without it those
// tables are there and empty. The paper of machines is not asked for: the format's own counts.
// Nothing can be written.
class FormatDatabase : public Database {
 public:
  // `others` is borrowed.
  explicit FormatDatabase(const FormatRows& format, Database* others = nullptr);

  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql, CursorType cursor,
                         LockType lock) override;
  std::unique_ptr<Connection> Connect(const std::string& connection) override;

 private:
  using Answer = std::shared_ptr<const MemoryRows>;

  const Answer& AnswerTo(const std::string& sql);

  recording::MemoryTables tables_;
  std::map<std::string, Answer> answers_;  // the rows don't change during a run
  Database* others_;
};

}  // namespace td::checker
