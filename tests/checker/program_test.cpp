// tdprint check as a person at a shell runs it.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>

#include "checked_sample.h"
#include "program_run.h"

namespace td::checker {
namespace {

class CheckProgram : public testing::Test {
 protected:
  [[nodiscard]] ProgramResult Check(const std::vector<std::string>& more,
                                    const std::string& locale = "C.UTF-8") const {
    std::vector<std::string> command = {"env", "QT_QPA_PLATFORM=offscreen", "LC_ALL=" + locale,
                                        TDPRINT_PROGRAM, "check"};
    command.insert(command.end(), more.begin(), more.end());
    return ProgramRun(command, sample_.Folder()).Finish();
  }
  [[nodiscard]] ProgramResult CheckSample(const std::vector<std::string>& more,
                                          const std::string& locale = "C.UTF-8") const {
    std::vector<std::string> all = {"--db", sample_.Connection()};
    all.insert(all.end(), more.begin(), more.end());
    return Check(all, locale);
  }

  CheckedSample sample_;
};

TEST_F(CheckProgram, ASoundDatabaseEndsWithStatus0) {
  const ProgramResult result = CheckSample({});
  EXPECT_EQ(result.status, 0) << result.out;
  EXPECT_EQ(result.out, "formats checked: 9; errors: 0, warnings: 0, hints: 0\n");
  EXPECT_EQ(result.err, "");
}

TEST_F(CheckProgram, TheRecipesHaveNoWarningsWithTheirRows) {
  struct Recipe {
    const char* name;
    const char* billType;
    const char* view;
  };
  for (const Recipe& recipe :
       {Recipe{"waybill", "51", "v_waybill"}, Recipe{"cheque", "52", "v_cheque"},
        Recipe{"tag", "56", "v_staff_tag"}}) {
    const std::string file = std::string(QBTD_SOURCE_DIR "/examples/recipes/") + recipe.name;
    std::ifstream script(file + ".sql");
    sample_.Run(std::string(std::istreambuf_iterator<char>(script), {}));
    const ProgramResult imported =
        ProgramRun({TDPRINT_PROGRAM, "import-format", "--db", sample_.Connection(), file + ".json"},
                   sample_.Folder())
            .Finish();
    ASSERT_EQ(imported.status, 0) << imported.err;
    const ProgramResult result = CheckSample(
        {"--type", recipe.billType, "--data", std::string("select * from ") + recipe.view});
    EXPECT_EQ(result.status, 0) << result.out << result.err;
  }
}

TEST_F(CheckProgram, HintsAloneEndWithStatus0) {
  sample_.Run("update TDBill set FPaperSize=0 where FTDBillID=2102");
  const ProgramResult result = CheckSample({});
  EXPECT_EQ(result.status, 0);
  EXPECT_NE(result.out.find("hints: 1"), std::string::npos) << result.out;
}

TEST_F(CheckProgram, WarningsEndWithStatus1) {
  sample_.Run("update TDBill set FRowsPerPage=1 where FTDBillID=2101");
  EXPECT_EQ(CheckSample({}).status, 1);
}

TEST_F(CheckProgram, ErrorsEndWithStatus2) {
  sample_.Run("update TDBill set FRowsPerPage=0 where FTDBillID=2101");
  EXPECT_EQ(CheckSample({}).status, 2);
  EXPECT_EQ(CheckSample({"--type", "21", "--format", "销售订单三联"}).status, 2);
  EXPECT_EQ(CheckSample({"--type", "22"}).status, 0);
  EXPECT_EQ(CheckSample({"--format", "销售出库单A4"}).status, 0);
}

TEST_F(CheckProgram, TheLocaleDecidesTheLanguage) {
  sample_.Run("update TDBill set FRowsPerPage=0 where FTDBillID=2101");
  EXPECT_EQ(CheckSample({}, "zh_CN.UTF-8").out.find("错误 销售订单三联: "), 0U);
  EXPECT_EQ(CheckSample({}).out.find("error 销售订单三联: "), 0U);
}

TEST_F(CheckProgram, JsonIsForPrograms) {
  sample_.Run("update TDBill set FRowsPerPage=0 where FTDBillID=2101");
  const ProgramResult result = CheckSample({"--json"});
  EXPECT_EQ(result.status, 2);
  const nlohmann::json report = nlohmann::json::parse(result.out);
  EXPECT_EQ(report["formats"], 9);
  EXPECT_EQ(report["findings"][0]["kind"], "rows-missing");
}

TEST_F(CheckProgram, RowsAreCheckedWithTheirBillType) {
  const ProgramResult result =
      CheckSample({"--type", "21", "--format", "销售订单三联", "--data",
                   "select FInterID,FAmount,FQty from v_sales_order where FInterID=21002"});
  EXPECT_EQ(result.status, 2);
  EXPECT_NE(result.out.find("FMainQty"), std::string::npos);
  EXPECT_EQ(CheckSample({"--data", "select 1 as FInterID"}).status, 2);  // of which type?
}

TEST_F(CheckProgram, WhatCannotBeCheckedEndsWithStatus3AndOneLine) {
  const std::vector<std::vector<std::string>> commands = {
      {"--db", "sqlite:/no/such.db"},
      {"--db", "nonsense"},
      {"--db", sample_.Connection(), "--printer", "no such printer"},
      {"--db", sample_.Connection(), "--type", "21", "--data", "select from"},
      {"--db", sample_.Connection(), "--type", "21", "--data", "delete from TDBill"},
  };
  for (const auto& command : commands) {
    const ProgramResult result = Check(command);
    EXPECT_EQ(result.status, 3) << command.back();
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err.find("tdprint: not checked: "), 0U) << result.err;
    EXPECT_EQ(std::ranges::count(result.err, '\n'), 1);
  }
}

TEST_F(CheckProgram, ADatabaseOfOtherTablesSaysWhatItLacks) {
  sample_.Run("drop table TDBill");
  const ProgramResult result = CheckSample({});
  EXPECT_EQ(result.status, 3);
  EXPECT_NE(result.err.find("TDBill"), std::string::npos) << result.err;
}

TEST_F(CheckProgram, NothingIsPrintedOrWritten) {
  (void)CheckSample({"--type", "21", "--data", "select * from v_sales_order"});
  EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(sample_.Folder()) / "state"));
}

}  // namespace
}  // namespace td::checker
