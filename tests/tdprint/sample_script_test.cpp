#include "sample_script.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <regex>
#include <set>
#include <sstream>

#include "platform/failure.h"
#include "sample_files.h"
#include "scratch_folder.h"
#include "script_dialect.h"
#include "sql_support/sql_scanner.h"

namespace td {
namespace {

std::string ScriptOf(const ScratchFolder& samples, ScriptEngine engine) {
  samples.Write("prints.tsv", "");
  const SampleDatabase database = OpenSampleDatabase(samples.Path());
  std::ostringstream script;
  WriteSampleScript(database.get(), engine, false, script);
  return script.str();
}

std::string ScriptOfSample(ScriptEngine engine, bool onlySchema = false) {
  const SampleDatabase database =
      OpenSampleDatabase(std::filesystem::path(QBTD_SOURCE_DIR) / "examples");
  std::ostringstream script;
  WriteSampleScript(database.get(), engine, onlySchema, script);
  return script.str();
}

TEST(ScriptDialect, ColumnsGetTheEnginesTypes) {
  const std::string table =
      "create table T (a integer, r real, t text, v varchar(9), d decimal(9,2), b blob)";
  EXPECT_EQ(ToScriptDialect(table, ScriptEngine::kSqlite), table);
  EXPECT_EQ(ToScriptDialect(table, ScriptEngine::kPostgreSql),
            "create table T (a integer, r double precision, t text, v varchar(9), "
            "d decimal(9,2), b bytea)");
  EXPECT_EQ(ToScriptDialect(table, ScriptEngine::kMariaDb),
            "create table T (a integer, r double, t text, v varchar(9), d decimal(9,2), "
            "b longblob)");
  EXPECT_EQ(ToScriptDialect(table, ScriptEngine::kSqlServer),
            "create table T (a integer, r float, t nvarchar(max), v nvarchar(9), "
            "d decimal(9,2), b varbinary(max))");
}

TEST(ScriptDialect, TextsAndCommentsStayAsTheyAre) {
  const std::string table = "create table T (a text default 'real || text' -- a real text\n)";
  EXPECT_EQ(ToScriptDialect(table, ScriptEngine::kPostgreSql), table);
  EXPECT_EQ(ToScriptDialect(table, ScriptEngine::kSqlServer),
            "create table T (a nvarchar(max) default N'real || text' -- a real text\n)");
}

TEST(ScriptDialect, ViewsGetTheEnginesFunctions) {
  const std::string view =
      "create view V as select a || '-' || b as c, printf('%.2f', (x + y)) as d, "
      "printf('%.15g', sum(x * (1 + y))) as e from T";
  EXPECT_EQ(ToScriptDialect(view, ScriptEngine::kPostgreSql),
            "create view V as select a || '-' || b as c, "
            "cast(cast((x + y) as decimal(18,2)) as varchar(30)) as d, "
            "cast(cast(sum(x * (1 + y)) as double precision) as varchar(30)) as e from T");
  EXPECT_EQ(ToScriptDialect(view, ScriptEngine::kSqlServer),
            "create view V as select a + N'-' + b as c, "
            "cast(cast((x + y) as decimal(18,2)) as nvarchar(30)) as d, "
            "format(cast(sum(x * (1 + y)) as float), N'G15') as e from T");
}

TEST(ScriptDialect, AFormatThatNoOtherEngineHasIsAnError) {
  const char* view = "create view V as select printf('%08x', a) as a from T";
  EXPECT_THROW((void)ToScriptDialect(view, ScriptEngine::kMariaDb), Failure);
}

TEST(ScriptDialect, LiteralsKeepEveryCharacterAndByte) {
  const unsigned char bytes[] = {0x00, 0xAB, 0xFF};
  EXPECT_EQ(TextLiteral("万\\'\n", ScriptEngine::kPostgreSql), "'万\\''\n'");
  EXPECT_EQ(TextLiteral("万", ScriptEngine::kSqlServer), "N'万'");
  EXPECT_EQ(BytesLiteral(bytes, 3, ScriptEngine::kSqlite), "x'00ABFF'");
  EXPECT_EQ(BytesLiteral(bytes, 3, ScriptEngine::kMariaDb), "x'00ABFF'");
  EXPECT_EQ(BytesLiteral(bytes, 3, ScriptEngine::kPostgreSql), "'\\x00ABFF'");
  EXPECT_EQ(BytesLiteral(bytes, 3, ScriptEngine::kSqlServer), "0x00ABFF");
}

TEST(SampleScript, HoldsTheRowsInTheirOrder) {
  const ScratchFolder samples;
  samples.Write("schema.sql",
                "create table T (a integer, b real, c text);\n"
                "create index IX_T on T (a);\n"
                "insert into T values (2, 0.1, 'x'), (1, -3, null);\n");
  EXPECT_EQ(ScriptOf(samples, ScriptEngine::kSqlite),
            "\nCREATE TABLE T (a integer, b real, c text);\n\nCREATE INDEX IX_T on T (a);\n"
            "\ninsert into T (a, b, c) values\n  (2, 0.1, 'x'),\n  (1, -3, null);\n");
}

TEST(SampleScript, OfTheSchemaAloneHasTheComponentsTablesAndNothingOfTheSamples) {
  const std::string script = ScriptOfSample(ScriptEngine::kSqlite, true);
  const std::regex create("\nCREATE (TABLE|INDEX|VIEW) (\\w+)");
  std::set<std::string> made;
  for (std::sregex_iterator found(script.begin(), script.end(), create), end; found != end;
       ++found) {
    made.insert((*found)[2]);
  }
  EXPECT_EQ(made, (std::set<std::string>{"TDBill", "TDBillDetail", "IX_TDBillDetail", "TDVariant",
                                         "TDBill_PaperSize", "TDBill_AreaPrinterDevice",
                                         "t_SystemProfile", "t_icitem", "IX_t_icitem",
                                         "t_icitem_Picture"}));
  EXPECT_EQ(script.find("insert into"), std::string::npos);
}

// No server of this kind is at hand, so its script is held to what such servers refuse.
TEST(SampleScript, ForSqlServerHasNothingThatItRefuses) {
  const std::string script = ScriptOfSample(ScriptEngine::kSqlServer);
  SqlScanner scanner(script, SqlLexicon{});
  std::string_view before;
  for (SqlToken token = scanner.Next(); token != SqlToken::kEnd; token = scanner.Next()) {
    // Without N a text loses its Chinese characters.
    EXPECT_TRUE(token != SqlToken::kQuoted || before == "N") << scanner.Text();
    before = scanner.Text();
  }
  EXPECT_EQ(script.find("||"), std::string::npos);
  EXPECT_EQ(script.find("printf"), std::string::npos);
  EXPECT_FALSE(std::regex_search(script, std::regex("  F\\w+ +(text|blob|real|varchar)\\b")));
  // A view must be alone in its batch, and a batch ends with a line of its own.
  for (std::size_t at = script.find("CREATE "); at != std::string::npos;
       at = script.find("CREATE ", at + 1)) {
    EXPECT_EQ(script.substr(at - 4, 4), "go\n\n") << script.substr(at, 40);
  }
}

}  // namespace
}  // namespace td
