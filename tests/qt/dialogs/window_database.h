// The database behind the windows of a test: on SQLite, or on the engine that the environment
// variable QBTD_TEST_ENGINE names, as "PostgreSql".
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "desktop/databases.h"
#include "sample_engine.h"
#include "table_lock.h"

namespace td {

class WindowDatabase {
 public:
  // The tables of the sample, made anew.
  explicit WindowDatabase(SampleRows rows);

  [[nodiscard]] const std::string& Connection() const { return SampleOn(engine_); }
  // The connection text of a database that isn't there.
  [[nodiscard]] std::string MissingConnection() const;

  // Runs statements as another program does.
  void Run(const std::string& script) const { RunScriptOn(engine_, script); }

  // The value that a statement selects, as text; Null is "Null".
  [[nodiscard]] std::string Cell(const std::string& statement);
  // The fields of a table's only row, joined with commas.
  [[nodiscard]] std::string OnlyRow(const std::string& table,
                                    const std::vector<std::string>& columns);

  // Until Allow, a write ("insert", "update") of a row that fulfils a condition on new and old
  // fails: "disk is full".
  void Refuse(const std::string& write, const std::string& table,
              const std::string& condition) const;
  void Allow(const std::string& table) const;

  [[nodiscard]] std::unique_ptr<TableLock> Lock(const std::string& table);

 private:
  SampleEngine engine_;
  Databases databases_;
};

}  // namespace td
