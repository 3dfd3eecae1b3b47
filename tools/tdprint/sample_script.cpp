#include "sample_script.h"

#include <sqlite3.h>

#include <array>
#include <charconv>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "platform/failure.h"
#include "script_dialect.h"

namespace td {
namespace {

// As many rows as every engine takes in one insert.
constexpr int kRowsOfAnInsert = 500;

// The tables of the component; the others are those of the application that the sample plays.
constexpr const char* kComponentTables =
    "('TDBill','TDBillDetail','TDVariant','TDBill_PaperSize','TDBill_AreaPrinterDevice',"
    "'t_SystemProfile','t_icitem','t_icitem_Picture')";

struct FinishStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, FinishStatement>;

Failure EngineFailure(sqlite3* database) {
  return {kDatabaseFailed, std::string("the sample: ") + sqlite3_errmsg(database)};
}

Statement Prepare(sqlite3* database, const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
    throw EngineFailure(database);
  }
  return Statement(statement);
}

// Goes on to the next row, if there is one.
bool Step(sqlite3* database, const Statement& statement) {
  const int code = sqlite3_step(statement.get());
  if (code != SQLITE_ROW && code != SQLITE_DONE) throw EngineFailure(database);
  return code == SQLITE_ROW;
}

std::string_view Text(const Statement& statement, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column));
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), column))};
}

std::vector<std::string> Texts(sqlite3* database, const std::string& sql) {
  const Statement statement = Prepare(database, sql);
  std::vector<std::string> texts;
  while (Step(database, statement)) texts.emplace_back(Text(statement, 0));
  return texts;
}

std::string NumberLiteral(double number) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  return {text.data(), end};
}

std::string Literal(const Statement& statement, int column, ScriptEngine engine) {
  switch (sqlite3_column_type(statement.get(), column)) {
    case SQLITE_NULL:
      return "null";
    case SQLITE_FLOAT:
      return NumberLiteral(sqlite3_column_double(statement.get(), column));
    case SQLITE_BLOB: {
      const auto* bytes =
          static_cast<const unsigned char*>(sqlite3_column_blob(statement.get(), column));
      return BytesLiteral(
          bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), column)), engine);
    }
    case SQLITE_TEXT:
      return TextLiteral(Text(statement, column), engine);
    default:
      return std::string(Text(statement, column));
  }
}

void WriteRows(sqlite3* sample, const std::string& table, ScriptEngine engine, std::ostream& out) {
  // In the order in which they were entered: the items of a format are drawn in it.
  const Statement rows = Prepare(sample, "select * from " + table + " order by rowid");
  const int columns = sqlite3_column_count(rows.get());
  std::string head = "\ninsert into " + table + " (";
  for (int column = 0; column < columns; ++column) {
    head.append(column > 0 ? ", " : "").append(sqlite3_column_name(rows.get(), column));
  }
  head += ") values\n";
  int count = 0;
  for (; Step(sample, rows); ++count) {
    const bool first = count % kRowsOfAnInsert == 0;
    if (first && count > 0) out << StatementEnd(engine);
    out << (first ? head : ",\n") << "  (";
    for (int column = 0; column < columns; ++column) {
      out << (column > 0 ? ", " : "") << Literal(rows, column, engine);
    }
    out << ")";
  }
  if (count > 0) out << StatementEnd(engine);
}

}  // namespace

std::optional<ScriptEngine> ScriptEngineNamed(std::string_view name) {
  if (name == "sqlite") return ScriptEngine::kSqlite;
  if (name == "postgresql") return ScriptEngine::kPostgreSql;
  if (name == "mariadb") return ScriptEngine::kMariaDb;
  if (name == "sqlserver") return ScriptEngine::kSqlServer;
  return std::nullopt;
}

void WriteSampleScript(sqlite3* sample, ScriptEngine engine, bool onlySchema, std::ostream& out) {
  out << ScriptHead(engine);
  const std::string which =
      onlySchema ? std::string(" and tbl_name in ") + kComponentTables : std::string();
  for (const std::string& create :
       Texts(sample,
             "select sql from sqlite_master where sql is not null" + which + " order by rowid")) {
    out << "\n" << ToScriptDialect(create, engine) << StatementEnd(engine);
  }
  if (onlySchema) return;
  for (const std::string& table :
       Texts(sample, "select name from sqlite_master where type='table' order by rowid")) {
    WriteRows(sample, table, engine, out);
  }
}

}  // namespace td
