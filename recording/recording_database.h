// The database of a replay: tables in memory, every statement recorded.
#pragma once

#include <memory>
#include <string>

#include "platform/database.h"
#include "recording/memory_tables.h"
#include "recording/recorder.h"
#include "recording/table_data.h"

namespace td::recording {

// A record set over rows in memory. Clones share the rows.
class RecordingRecordset : public Recordset {
 public:
  // `recorder` outlives the record set.
  RecordingRecordset(Recorder& recorder, std::shared_ptr<const TableData> data,
                     bool canClone = true);

  bool Eof() override;
  const Value& Field(std::string_view column) override;
  void MoveNext() override;
  void MoveFirst() override;
  void Close() override;
  RecordsetRef Clone() override;

  // The current row, counted from 0; null behind the last row and when closed.
  [[nodiscard]] Json Position() const;

 private:
  [[nodiscard]] const TableData& Open() const;

  Recorder& recorder_;
  std::shared_ptr<const TableData> data_;
  bool canClone_;
  std::size_t row_ = 0;
};

class RecordingDatabase : public Database {
 public:
  RecordingDatabase(Recorder& recorder, MemoryTables& tables)
      : recorder_(recorder), tables_(tables) {}

  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql, CursorType cursor,
                         LockType lock) override;
  std::unique_ptr<Connection> Connect(const std::string& connection) override;

 private:
  Recorder& recorder_;
  MemoryTables& tables_;
};

}  // namespace td::recording
