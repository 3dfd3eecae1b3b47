// A database user with the rights that docs/databases.md grants, and no other.
#include <gtest/gtest.h>

#include "documented_rights.h"
#include "engine_runs.h"
#include "platform/failure.h"

namespace td {
namespace {

class Rights : public testing::TestWithParam<SampleEngine> {
 protected:
  Rights() { RenewSample(GetParam()); }
  ~Rights() override { RenewSample(GetParam()); }
};
INSTANTIATE_TEST_SUITE_P(Servers, Rights,
                         testing::Values(SampleEngine::kPostgreSql, SampleEngine::kMariaDb),
                         NameOfEngine);

TEST_P(Rights, OfTheDocumentSufficeForAPrintAndAllDialogs) {
  const UserWithRights clerk(GetParam(), {"clerk"}, {"v_purchase_receipt"});
  recording::Scenario scenario = recording::ReadScenario(recording::ParseScenario(R"({"calls": [
    {"do": "DoPrint", "New_TranType": 12, "user": [{"key": "pageset", "confirm": true}]},
    {"do": "TDSet", "TranType": 12, "user": [{"press": "cmdOk"}]},
    {"do": "frmAreaPrintSet", "user": [
      {"select": "cmbPrintFmt", "index": 0}, {"select": "cmbStockArea", "index": 0},
      {"select": "cmbPrintDevice", "index": 2}, {"press": "cmdOk"}, {"press": "cmdExit"}]}]})"));
  std::get<recording::Print>(scenario.calls.front().action).data =
      Engines().OpenQuery(clerk.Connection(), PrintNamed("purchase-receipt-1-line").data,
                          CursorType::kUnspecified, LockType::kUnspecified);
  Lines trace;
  int writes = 0;
  for (const auto& line : recording::ReplayOn({Engines(), clerk.Connection()}, scenario).trace) {
    trace.push_back(recording::LineText(line));
    writes += line.at("e") == "execute" ? 1 : 0;
  }
  EXPECT_EQ(MessagesIn(trace), Lines{"保存成功！"});
  EXPECT_EQ(writes, 7);
  EXPECT_THROW(Engines().Connect(clerk.Connection())->Execute("update t_icitem set FName=''"),
               Failure);
}

}  // namespace
}  // namespace td
