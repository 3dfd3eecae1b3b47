#include "window_database.h"

#include <cstdlib>
#include <stdexcept>

#include "text/conversions.h"

namespace td {
namespace {

SampleEngine ChosenEngine() {
  const char* const chosen = std::getenv("QBTD_TEST_ENGINE");
  if (chosen == nullptr) return SampleEngine::kSqlite;
  for (const SampleEngine engine :
       {SampleEngine::kSqlite, SampleEngine::kPostgreSql, SampleEngine::kMariaDb}) {
    if (NameOf(engine) == chosen) return engine;
  }
  throw std::invalid_argument(std::string("no engine ") + chosen);
}

std::string TextOf(const Value& value) {
  return IsNull(value) ? "Null" : ToText(value);
}

}  // namespace

WindowDatabase::WindowDatabase(SampleRows rows) : engine_(ChosenEngine()) {
  RenewSample(engine_, rows);
}

std::string WindowDatabase::MissingConnection() const {
  std::string connection = Connection();
  const std::string name = engine_ == SampleEngine::kSqlite ? "sample.db" : "Database=qbtd";
  return connection.insert(connection.find(name) + name.size(), "_missing");
}

std::string WindowDatabase::Cell(const std::string& statement) {
  return TextOf(databases_
                    .OpenQuery(Connection(), "select (" + statement + ") as FCell",
                               CursorType::kUnspecified, LockType::kUnspecified)
                    ->Field("FCell"));
}

std::string WindowDatabase::OnlyRow(const std::string& table,
                                    const std::vector<std::string>& columns) {
  const RecordsetRef rows = databases_.OpenQuery(Connection(), "select * from " + table,
                                                 CursorType::kUnspecified, LockType::kUnspecified);
  std::string fields;
  for (const std::string& column : columns) {
    fields += (fields.empty() ? "" : ",") + TextOf(rows->Field(column));
  }
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof()) << table << " has another row";
  return fields;
}

void WindowDatabase::Refuse(const std::string& write, const std::string& table,
                            const std::string& condition) const {
  const std::string trigger = "create trigger refuse before " + write + " on " + table;
  switch (engine_) {
    case SampleEngine::kSqlite:
      Run(trigger + " when " + condition + " begin select raise(abort, 'disk is full'); end");
      break;
    case SampleEngine::kPostgreSql:
      Run("create function refuse() returns trigger language plpgsql as "
          "$$ begin raise exception 'disk is full'; end $$; " +
          trigger + " for each row when (" + condition + ") execute function refuse();");
      break;
    case SampleEngine::kMariaDb:
      Run("delimiter //\n" + trigger + " for each row if " + condition +
          " then signal sqlstate '45000' set message_text='disk is full'; end if//\n");
      break;
  }
}

void WindowDatabase::Allow(const std::string& table) const {
  Run("drop trigger refuse" + (engine_ == SampleEngine::kPostgreSql ? " on " + table : ""));
}

std::unique_ptr<TableLock> WindowDatabase::Lock(const std::string& table) {
  return std::make_unique<TableLock>(databases_, engine_, table);
}

}  // namespace td
