// A database in front of another, for tests that change one thing on the way.
#pragma once

#include "platform/platform.h"

namespace td {

class PassingDatabase : public Database {
 public:
  explicit PassingDatabase(Database& database) : database_(database) {}

  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql, CursorType cursor,
                         LockType lock) override {
    return database_.OpenQuery(connection, sql, cursor, lock);
  }
  std::unique_ptr<Connection> Connect(const std::string& connection) override {
    return database_.Connect(connection);
  }

 private:
  Database& database_;
};

// The same platform on another database.
inline Platform PlatformOn(Database& database, const Platform& platform) {
  return {database, platform.pictures, platform.messages, platform.machine, platform.windows};
}

}  // namespace td
