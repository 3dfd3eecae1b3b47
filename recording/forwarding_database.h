// A real database under a replay: every statement recorded, then carried out.
#pragma once

#include <memory>
#include <string>

#include "platform/database.h"
#include "recording/recorder.h"

namespace td::recording {

// Borrowed; outlives the replay.
struct RealDatabase {
  Database& database;
  std::string connection;  // takes the place of whatever connection text the logic hands on
};

class ForwardingDatabase : public Database {
 public:
  // `recorder` outlives the database.
  ForwardingDatabase(Recorder& recorder, RealDatabase real)
      : recorder_(recorder), real_(std::move(real)) {}

  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql, CursorType cursor,
                         LockType lock) override;
  std::unique_ptr<Connection> Connect(const std::string& connection) override;

 private:
  Recorder& recorder_;
  RealDatabase real_;
};

}  // namespace td::recording
