// The program on each database engine: its other outputs, and what it says when it can't print.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include "desktop/databases.h"
#include "program_run.h"
#include "sample_printing.h"
#include "scratch_folder.h"
#include "table_lock.h"

namespace td {
namespace {

class ProgramOnEngine : public ::testing::TestWithParam<SampleEngine> {
 protected:
  [[nodiscard]] ProgramRun BeginPrint(const std::string& connection,
                                      const std::string& data) const {
    return {{TDPRINT_PROGRAM, "print", "--db", connection, "--type", "21", "--data", data, "--pdf",
             (scratch_ / "bill.pdf").string()},
            scratch_.Path()};
  }
  [[nodiscard]] ProgramResult Print(const std::string& connection, const std::string& data) const {
    return BeginPrint(connection, data).Finish();
  }

  // Not printed, and told in one line.
  void ExpectRefused(const ProgramResult& result) const {
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(std::ranges::count(result.err, '\n'), 1) << result.err;
    EXPECT_EQ(result.err.find("geheim"), std::string::npos) << result.err;
    EXPECT_EQ(result.err.find("verborgen"), std::string::npos) << result.err;
    EXPECT_FALSE(std::filesystem::exists(scratch_ / "bill.pdf"));
  }

  const std::string rows_ = "select * from v_sales_order where FInterID=21002";
  ScratchFolder scratch_;
};

INSTANTIATE_TEST_SUITE_P(Engines, ProgramOnEngine, kEachEngine, NameOfEngine);

TEST_P(ProgramOnEngine, WritesAPictureOfEachPage) {
  const std::filesystem::path folder =
      PrintedSample(GetParam(), SampleNamed("sales-order-26-lines"), "--png");
  for (const char* page : {"page-001.png", "page-002.png", "page-003.png"}) {
    EXPECT_GT(std::filesystem::file_size(folder / page), 1000U) << page;
  }
  EXPECT_FALSE(std::filesystem::exists(folder / "page-004.png"));
}

TEST_P(ProgramOnEngine, TakesTheSelectedFormat) {
  EXPECT_EQ(Print(SampleOn(GetParam()), rows_).status, 0);
  EXPECT_TRUE(std::filesystem::exists(scratch_ / "bill.pdf"));
}

TEST_P(ProgramOnEngine, WaitsForALockedTable) {
  using namespace std::chrono_literals;
  Databases databases;
  TableLock lock(databases, GetParam(), "TDBill");
  ProgramRun program = BeginPrint(SampleOn(GetParam()), rows_);
  std::this_thread::sleep_for(1500ms);  // longer than the engines themselves wait for a lock
  EXPECT_FALSE(std::filesystem::exists(scratch_ / "bill.pdf"));
  lock.Release();
  const ProgramResult result = program.Finish();
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err, "");
  EXPECT_TRUE(std::filesystem::exists(scratch_ / "bill.pdf"));
}

TEST_P(ProgramOnEngine, RefusesAStatementThatFails) {
  ExpectRefused(Print(SampleOn(GetParam()), "select * from v_nothing"));
  ExpectRefused(Print(SampleOn(GetParam()), rows_ + ";delete from TDBill"));
  EXPECT_EQ(Print(SampleOn(GetParam()), rows_).status, 0) << "the formats are still there";
}

TEST_P(ProgramOnEngine, RefusesDataThatWouldChangeTheDatabase) {
  Databases databases;
  const auto countOfVariables = [&] {
    return databases
        .OpenQuery(SampleOn(GetParam()), "select count(*) as a from TDVariant",
                   CursorType::kUnspecified, LockType::kUnspecified)
        ->Field("a");
  };
  const Value before = countOfVariables();
  ExpectRefused(Print(SampleOn(GetParam()), "delete from TDVariant returning *"));
  ExpectRefused(Print(SampleOn(GetParam()), "update TDVariant set FVarName=''"));
  ExpectRefused(Print(SampleOn(GetParam()), "drop view v_stock_out"));
  EXPECT_EQ(countOfVariables(), before);
  EXPECT_EQ(Print(SampleOn(GetParam()), rows_).status, 0) << "the variables still have their names";
}

TEST_P(ProgramOnEngine, RefusesADatabaseThatDoesNotOpenAndShowsNoPassword) {
  std::string wrong = SampleOn(GetParam());
  const std::string right = "PWD={geheim;}}1}";
  const std::size_t at = wrong.find(right);
  if (at == std::string::npos) {
    wrong += ".missing";
  } else {
    wrong.replace(at, right.size(), "PWD={verborgen;}}2}");
  }
  ExpectRefused(Print(wrong, rows_));
}

}  // namespace
}  // namespace td
