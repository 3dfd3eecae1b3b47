// Formats that lie on a server: they are read with its own joins.
#include <gtest/gtest.h>

#include "checked_sample.h"
#include "checker/finding_messages.h"
#include "sample_engine.h"

namespace td::checker {
namespace {

class CheckerOnEngine : public testing::TestWithParam<SampleEngine> {
 protected:
  [[nodiscard]] std::string Found(const Selection& selection, const std::string& data = {}) const {
    const FakeMachine machine(Desktop().Get().pictures);
    const std::string& connection = SampleOn(GetParam());
    CheckOptions options;
    if (!data.empty()) options.rows = Desktop().OpenReadOnly(connection, data);
    std::string found;
    for (const Finding& finding :
         CheckDatabase(Desktop().Get().database, connection, selection, machine, options)
             .findings) {
      found += std::string(MessageOf(finding.kind).id) + " " +
               (finding.item ? finding.item->caption : finding.format) + "\n";
    }
    return found;
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, CheckerOnEngine, kEachEngine, NameOfEngine);

TEST_P(CheckerOnEngine, TheSampleIsClean) {
  EXPECT_EQ(Found({}), "");
  EXPECT_EQ(Found({22, "销售出库单A4"}, "select * from v_stock_out where FInterID=22001"), "");
}

TEST_P(CheckerOnEngine, MistakesAreFoundAndMended) {
  RunScriptOn(GetParam(),
              "update TDBillDetail set FObjectFieldName='客沪' where FTDBillID=2101 and "
              "FObjectFieldName='客户';\n"
              "update TDBill set FRowsPerPage=40 where FTDBillID=2101;\n"
              "insert into TDBill_PaperSize values ('192.0.2.7','旧订单',9,1,1,0,'');\n");
  EXPECT_EQ(Found({}),
            "rows-off-sheet 销售订单三联\nvariable-unknown 客沪\n"
            "machine-no-format 旧订单\n");
  RenewSample(GetParam());
  EXPECT_EQ(Found({}), "");
}

TEST_P(CheckerOnEngine, AFormatNameWithAQuoteIsNoReasonToFail) {
  RunScriptOn(GetParam(), "update TDBill set FTDBillName='it''s' where FTDBillID=2101;\n");
  EXPECT_NE(Found({21, "it's"}).find("name-quote it's"), std::string::npos);
  RenewSample(GetParam());
}

}  // namespace
}  // namespace td::checker
