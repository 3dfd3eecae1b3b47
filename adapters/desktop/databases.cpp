#include "desktop/databases.h"

#include <algorithm>

#include "sqlite/sqlite_database.h"

namespace td {

Databases::Databases() {
  engines_.push_back({[](const std::string&) { return true; }, std::make_unique<SqliteDatabase>()});
}

Databases::~Databases() = default;

Database& Databases::EngineFor(const std::string& connection) {
  const auto engine = std::ranges::find_if(
      engines_, [&](const Engine& candidate) { return candidate.serves(connection); });
  return *engine->database;
}

RecordsetRef Databases::OpenQuery(const std::string& connection, const std::string& sql,
                                  CursorType cursor, LockType lock) {
  return EngineFor(connection).OpenQuery(connection, sql, cursor, lock);
}

std::unique_ptr<Connection> Databases::Connect(const std::string& connection) {
  return EngineFor(connection).Connect(connection);
}

}  // namespace td
