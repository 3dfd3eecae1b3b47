#include "scenario_tables.h"

#include <algorithm>
#include <string>

#include "engine_runs.h"

namespace td {
namespace {

using recording::Json;

// The type that holds all values of a column; by its name if there are none.
std::string TypeOf(const std::string& name, const Json& rows, std::size_t column) {
  const auto any = [&](auto holds) {
    return std::any_of(rows.begin(), rows.end(),
                       [&](const Json& row) { return holds(row[column]); });
  };
  if (any([](const Json& value) { return value.is_string(); })) return "varchar(200)";
  if (any([](const Json& value) { return value.is_number_float(); })) return "double precision";
  const bool isText = name == "FIP" || name == "FTDBillName" || name == "FDevice" ||
                      name == "FPrintDevice" || name == "FKey" || name == "FValue";
  return isText ? "varchar(200)" : "integer";
}

std::string Literal(const Json& value) {
  if (value.is_boolean()) return value.get<bool>() ? "1" : "0";
  return value.is_string() ? "'" + value.get<std::string>() + "'" : value.dump();
}

// "a,b,c"
template <typename Items, typename TextOf>
std::string List(const Items& items, const TextOf& textOf) {
  std::string list;
  for (std::size_t i = 0; i < items.size(); ++i) list += (i > 0 ? "," : "") + textOf(i);
  return list;
}

}  // namespace

void MakeTables(const Json& tables, SampleEngine engine) {
  for (const auto& item : tables.items()) {
    const std::string& name = item.key();
    const Json& columns = item.value().at("columns");
    const Json& rows = item.value().at("rows");
    // A connection of its own for each table, as the names of tables are read when it is made.
    const auto execute = [engine](const std::string& sql) {
      Engines().Connect(SampleOn(engine))->Execute(sql);
    };
    execute("drop table " + name + (engine == SampleEngine::kPostgreSql ? " cascade" : ""));
    execute("create table " + name + " (" +
            List(columns,
                 [&](std::size_t i) {
                   const auto column = columns[i].get<std::string>();
                   return column + " " + TypeOf(column, rows, i);
                 }) +
            ")");
    for (const Json& row : rows) {
      execute("insert into " + name + " values (" +
              List(row, [&](std::size_t i) { return Literal(row[i]); }) + ")");
    }
  }
}

}  // namespace td
