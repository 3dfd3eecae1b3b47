#include "desktop/databases.h"

#include <algorithm>
#include <string_view>

#include "odbc/odbc_database.h"
#include "sql_support/connection_entries.h"
#include "sqlite/sqlite_database.h"
#include "text/conversions.h"

namespace td {
namespace {

// A text that names a driver, a data source, or a provider other than the embedded one. A path
// behind the embedded one's own mark may look like such a text and names none.
bool NamesServer(const std::string& connection) {
  constexpr std::string_view kOwnMark = "sqlite:";
  if (LowerCase(std::string_view(connection).substr(0, kOwnMark.size())) == kOwnMark) return false;
  try {
    const auto entries = ReadConnectionEntries(connection);
    return std::ranges::any_of(entries, [](const ConnectionEntry& entry) {
      const std::string key = LowerCase(entry.key);
      if (key == "provider") return LowerCase(entry.value) != "sqlite";
      return key == "driver" || key == "dsn" || key == "filedsn";
    });
  } catch (const Failure&) {
    return false;
  }
}

}  // namespace

Databases::Databases() {
  engines_.push_back({NamesServer, std::make_unique<OdbcDatabase>()});
  engines_.push_back({[](const std::string&) { return true; }, std::make_unique<SqliteDatabase>()});
}

Databases::~Databases() = default;

TransactionalDatabase& Databases::EngineFor(const std::string& connection) {
  const std::scoped_lock guard(mutex_);
  if (lastDatabase_ != nullptr && connection == lastConnection_) return *lastDatabase_;
  const auto engine = std::ranges::find_if(
      engines_, [&](const Engine& candidate) { return candidate.serves(connection); });
  lastConnection_ = connection;
  lastDatabase_ = engine->database.get();
  return *lastDatabase_;
}

RecordsetRef Databases::OpenQuery(const std::string& connection, const std::string& sql,
                                  CursorType cursor, LockType lock) {
  return EngineFor(connection).OpenQuery(connection, sql, cursor, lock);
}

RecordsetRef Databases::OpenReadOnly(const std::string& connection, const std::string& sql) {
  return EngineFor(connection).OpenReadOnly(connection, sql);
}

std::unique_ptr<Connection> Databases::Connect(const std::string& connection) {
  return EngineFor(connection).Connect(connection);
}

std::unique_ptr<Transaction> Databases::Begin(const std::string& connection, Access access) {
  return EngineFor(connection).Begin(connection, access);
}

}  // namespace td
