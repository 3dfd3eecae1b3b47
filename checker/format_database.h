// A database that answers what a run asks about one format from rows in memory.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>

#include "checker/format_rows.h"
#include "platform/database.h"
#include "recording/memory_tables.h"

namespace td::checker {

// Told of the run's way over the items of the format.
class ItemWatcher {
 public:
  virtual ~ItemWatcher() = default;
  // A query has delivered the item.
  virtual void ItemFetched(std::size_t item) = 0;
  // The run stands on an item, or behind the last one of a band.
  virtual void ItemReached(std::size_t item) = 0;
  virtual void ItemsEnded() = 0;
  // A column of the item the run stands on was read, and its value.
  virtual void ItemColumnRead(std::string_view column, const Value& value) = 0;
};

// Statements on other tables than the format's go to `others`, if there is one; without it those
// tables are there and empty. The paper of machines is not asked for: the format's own counts.
// Nothing can be written.
class FormatDatabase : public Database {
 public:
  // All are borrowed.
  FormatDatabase(const FormatRows& format, ItemWatcher& watcher, Database* others = nullptr);

  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql, CursorType cursor,
                         LockType lock) override;
  std::unique_ptr<Connection> Connect(const std::string& connection) override;

 private:
  using Answer = std::shared_ptr<const recording::TableData>;

  Answer AnswerTo(const std::string& sql);

  recording::MemoryTables tables_;
  std::map<std::string, Answer> answers_;  // the rows don't change during a run
  ItemWatcher& watcher_;
  Database* others_;
};

}  // namespace td::checker
