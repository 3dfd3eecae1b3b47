// The sample on each database engine.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace td {

enum class SampleEngine { kSqlite, kPostgreSql, kMariaDb };

inline const auto kEachEngine =
    testing::Values(SampleEngine::kSqlite, SampleEngine::kPostgreSql, SampleEngine::kMariaDb);

[[nodiscard]] std::string NameOf(SampleEngine engine);  // "PostgreSql"

inline std::string NameOfEngine(const testing::TestParamInfo<SampleEngine>& info) {
  return NameOf(info.param);
}

// The connection text of the sample on an engine: made when it is first asked for, and gone with
// the last test.
[[nodiscard]] const std::string& SampleOn(SampleEngine engine);

// The file of the embedded one.
[[nodiscard]] std::filesystem::path SampleFile();

enum class SampleRows { kAll, kNone };

// Makes it anew, after a test that has written into it or for one that wants its tables empty.
void RenewSample(SampleEngine engine, SampleRows rows = SampleRows::kAll);

// Runs any number of statements in it as another program does; a failure fails the test.
void RunScriptOn(SampleEngine engine, const std::string& script);

}  // namespace td
