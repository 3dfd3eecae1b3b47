// tdprint record.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "sample_shop.h"

namespace td {
namespace {

class TdprintRecord : public SampleShop {
 protected:
  [[nodiscard]] ProgramResult Record(const std::string& more) const {
    return Shell(
        "tdprint record --db sqlite:sample.db --type 21 --format 销售订单三联 --data \"select * "
        "from "
        "v_sales_order where FInterID=21002 order by FEntryID\" " +
        more);
  }
};

TEST_F(TdprintRecord, WritesAScenarioThatReplays) {
  const ProgramResult result = Record("--out order.json");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out + result.err, "");
  const ProgramResult replay = Shell("td_replay order.json");
  EXPECT_EQ(replay.status, 0) << replay.err;
  EXPECT_NE(replay.out.find("金穗压榨花生油"), std::string::npos);
  EXPECT_NE(replay.out.find("\"PrintOk\":true"), std::string::npos);
  EXPECT_EQ(ContentOf("order.json").find("sqlite:"), std::string::npos) << "the connection text";
}

TEST_F(TdprintRecord, GoesToStandardOutput) {
  EXPECT_TRUE(Record("").out.starts_with("{\n  \"machine\": "));
}

TEST_F(TdprintRecord, AMaskedScenarioTellsNothingAndPrintsInTheSameShape) {
  EXPECT_EQ(Record("--out order.json").status, 0);
  EXPECT_EQ(Record("--mask --out masked.json").status, 0);
  const std::string masked = ContentOf("masked.json");
  for (const char* secret : {"聚福楼", "花生油", "2403-0002", "孙丽", "3175"}) {
    EXPECT_EQ(masked.find(secret), std::string::npos) << secret;
  }
  const auto lines = [&](const std::string& file) {
    const std::string trace = Shell("td_replay " + file).out;
    return std::count(trace.begin(), trace.end(), '\n');
  };
  EXPECT_EQ(lines("masked.json"), lines("order.json"));
}

TEST_F(TdprintRecord, PrintsNothingAndChangesNothing) {
  const std::string before = ContentOf("sample.db");
  EXPECT_EQ(Record("--out order.json").status, 0);
  EXPECT_EQ(ContentOf("sample.db"), before);
  EXPECT_EQ(Shell("ls -A | grep -v -e order.json -e sample.db -e ^standard- || true").out, "");
}

TEST_F(TdprintRecord, ARefusedStatementIsTold) {
  const ProgramResult result = Shell(
      "tdprint record --db sqlite:sample.db --type 21 --data 'delete from TDBill' --out x.json");
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(result.err.starts_with("tdprint: not recorded: ")) << result.err;
  EXPECT_EQ(Record("--out gone/order.json").status, 1);
}

TEST_F(TdprintRecord, AScenarioThatPrintsOtherwiseIsTold) {
  Execute(
      "insert into TDBill (FTDBillID, FTranType, FTDBillName, FRowsPerPage, FRowHeight) values "
      "(900, 21, 'it''s', 10, 300)");
  const ProgramResult result = Shell(
      "tdprint record --db sqlite:sample.db --type 21 --format \"it's\" --data 'select 1 as "
      "FInterID' "
      "--out x.json");
  EXPECT_EQ(result.status, 3) << "the words of a broken statement are the engine's";
  EXPECT_TRUE(
      result.err.starts_with("tdprint: the scenario prints otherwise than the database: line "))
      << result.err;
  EXPECT_EQ(Shell("td_replay x.json").status, 0);
}

}  // namespace
}  // namespace td
