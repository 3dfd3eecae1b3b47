// What a print costs the database.
#include <gtest/gtest.h>

#include "engine_runs.h"
#include "platform/failure.h"
#include "watched_database.h"

namespace td {
namespace {

class Costs : public testing::TestWithParam<SampleEngine> {
 protected:
  struct Requests {
    int rowItems = 0;  // the items of a detail row
    int others = 0;
  };

  static Requests RequestsOf(const std::string& name) {
    const SamplePrint print = PrintNamed(name);
    Requests requests;
    WatchedDatabase watched(
        Engines(),
        [&](const std::string& sql) {
          const bool isRow = sql.ends_with("t2.FSite=3");
          ++(isRow ? requests.rowItems : requests.others);
        },
        [](const Failure& failure) { ADD_FAILURE() << failure.Description(); });
    (void)TraceOf(PrintOf(print, RowsOf(print, GetParam())), GetParam(), watched);
    return requests;
  }
};
INSTANTIATE_TEST_SUITE_P(Engines, Costs, kEachEngine, NameOfEngine);

TEST_P(Costs, AreOneQueryForEachRow) {
  constexpr int kForARun = 5;   // settings, format, paper
  constexpr int kForAPage = 5;  // the other bands
  EXPECT_EQ(RequestsOf("sales-order-1-line").rowItems, 1);
  const Requests sixtyLines = RequestsOf("sales-order-a4-60-lines");  // on three pages
  EXPECT_EQ(sixtyLines.rowItems, 60);
  EXPECT_LE(sixtyLines.others, kForARun + 3 * kForAPage);
}

TEST(EmbeddedIndexes, ServeTheQueryOfEachRow) {
  const RecordsetRef plan = Engines().OpenQuery(
      SampleOn(SampleEngine::kSqlite),
      "explain query plan select t2.*,t3.FVarName as FFieldName from ((select FTDBillID from "
      "TDBill "
      "where FtranType=21 and FTDBillName='销售订单A4') t1 Inner Join TDBillDetail t2 ON "
      "t1.FTDBillID=t2.FTDBillID) Left Join (select * from TDVariant where FTranType=21) t3 ON "
      "t2.FObjectFieldName=t3.FVarCaption  where t2.FTop>=0 and t2.FLeft>=0 and t2.FSite=3",
      CursorType::kUnspecified, LockType::kUnspecified);
  for (; !plan->Eof(); plan->MoveNext()) {
    const std::string step = std::get<std::string>(plan->Field("detail"));
    EXPECT_TRUE(step.starts_with("SEARCH") && step.find("INDEX") != std::string::npos) << step;
  }
}

}  // namespace
}  // namespace td
