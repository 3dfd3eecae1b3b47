// A database user with the rights that docs/databases.md grants, and no other.
#include <gtest/gtest.h>

#include <fstream>

#include "database_servers.h"
#include "engine_runs.h"
#include "platform/failure.h"
#include "scratch_folder.h"

namespace td {
namespace {

class Rights : public testing::TestWithParam<SampleEngine> {
 protected:
  void SetUp() override {
    RenewSample(GetParam());
    const bool isPostgreSql = GetParam() == SampleEngine::kPostgreSql;
    std::string script = isPostgreSql ? "create user cashier password 'kasse';\n"
                                      : "create user cashier@'127.0.0.1' identified by 'kasse';\n";
    const std::string user = isPostgreSql ? "cashier;\n" : "cashier@'127.0.0.1';\n";
    for (const char* table :
         {"TDBill", "TDBillDetail", "TDVariant", "TDBill_PaperSize", "TDBill_AreaPrinterDevice",
          "t_SystemProfile", "t_icitem", "t_icitem_Picture", "v_purchase_receipt"}) {
      script += std::string("grant select on ") + table + " to " + user;
    }
    script += "grant update on TDBill to " + user;
    script += "grant insert, delete on TDBill_PaperSize to " + user;
    script += "grant insert, delete on TDBill_AreaPrinterDevice to " + user;
    RunScript(server_, scratch_.Write("rights.sql", script));
    const std::string owner = "UID=clerk;PWD={geheim;}}1}";
    connection_.replace(connection_.find(owner), owner.size(), "UID=cashier;PWD=kasse");
  }
  void TearDown() override {
    const bool isPostgreSql = GetParam() == SampleEngine::kPostgreSql;
    RunScript(server_,
              scratch_.Write("end.sql", isPostgreSql ? "drop owned by cashier; drop user cashier;\n"
                                                     : "drop user cashier@'127.0.0.1';\n"));
    RenewSample(GetParam());
  }

  ScratchFolder scratch_;
  Server server_ = GetParam() == SampleEngine::kPostgreSql ? Server::kPostgreSql : Server::kMariaDb;
  std::string connection_ = ConnectionOf(server_);
};
INSTANTIATE_TEST_SUITE_P(Servers, Rights,
                         testing::Values(SampleEngine::kPostgreSql, SampleEngine::kMariaDb),
                         NameOfEngine);

TEST_P(Rights, OfTheDocumentSufficeForAPrintAndAllDialogs) {
  recording::Scenario scenario = recording::ReadScenario(recording::ParseScenario(R"({"calls": [
    {"do": "DoPrint", "New_TranType": 12, "user": [{"key": "pageset", "confirm": true}]},
    {"do": "TDSet", "TranType": 12, "user": [{"press": "cmdOk"}]},
    {"do": "frmAreaPrintSet", "user": [
      {"select": "cmbPrintFmt", "index": 0}, {"select": "cmbStockArea", "index": 0},
      {"select": "cmbPrintDevice", "index": 2}, {"press": "cmdOk"}, {"press": "cmdExit"}]}]})"));
  std::get<recording::Print>(scenario.calls.front().action).data =
      Engines().OpenQuery(connection_, PrintNamed("purchase-receipt-1-line").data,
                          CursorType::kUnspecified, LockType::kUnspecified);
  Lines trace;
  int writes = 0;
  for (const auto& line : recording::ReplayOn({Engines(), connection_}, scenario).trace) {
    trace.push_back(recording::LineText(line));
    writes += line.at("e") == "execute" ? 1 : 0;
  }
  EXPECT_EQ(MessagesIn(trace), Lines{"保存成功！"});
  EXPECT_EQ(writes, 7);
  EXPECT_THROW(Engines().Connect(connection_)->Execute("update t_icitem set FName=''"), Failure);
}

}  // namespace
}  // namespace td
