// What a program learns of its prints: why a box is empty, and where a message comes from.
#include <gtest/gtest.h>

#include <memory>

#include "desktop/desktop_platform.h"
#include "explanation/explanation_text.h"
#include "memory_rows/memory_recordset.h"
#include "page_document/page_document.h"
#include "service/printer.h"
#include "temporary_database.h"
#include "test_tools.h"

namespace td {
namespace {

constexpr const char* kFormats = R"(
  insert into TDBill (FTDBillID, FTranType, FTDBillName, FSelected, FRowsPerPage, FRowHeight)
    values (1, 21, '订单', 1, 5, 400);
  insert into TDVariant (FTranType, FVarCaption, FVarName)
    values (21, '品名', 'FItemName'), (21, '客户', 'FCustName');
  insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FTypeID,
                            FObjectFieldName, FObjectCaption, FPicturePath)
    values (1, 1, 1000, 500, 4000, 400, 0, '客户', '客户', ''),
           (1, 3, 1000, 2000, 4000, 400, 0, '品名', '品名', ''),
           (1, 4, 1000, 3000, 0, 0, 2, '', '标志', '/gone/logo.png'),
           (1, 7, 1000, 3000, 0, 0, 0, '', '第七区', '');
)";

class ExplainedPrint : public testing::Test {
 protected:
  ExplainedPrint() {
    options_.stateDirectory = folder_.File("state");
    options_.messages = MessageMode::kCollected;
    options_.documentSink = [](const PageDocument&) {};
  }
  DesktopPlatform& Print() {
    desktop_ = std::make_unique<DesktopPlatform>(options_);
    const std::vector<std::vector<Value>> rows = {{std::int64_t{7}, Value("大米")},
                                                  {std::int64_t{7}, Value("油")}};
    Printer(desktop_->Get())
        .DoPrint(true, connection_, 21, false, false,
                 std::make_shared<MemoryRecordset>(
                     std::vector<std::string>{"FInterID", "FItemName"}, rows));
    return *desktop_;
  }

  TemporaryFolder folder_;
  const std::string connection_ = MakeDatabase(
      folder_.File("bills.db"), ReadFile(QBTD_SOURCE_DIR "/examples/schema.sql") + kFormats);
  DesktopOptions options_;
  std::unique_ptr<DesktopPlatform> desktop_;
};

TEST_F(ExplainedPrint, HasAnExplanationOnWish) {
  options_.explain = true;
  const Explanation explanation = Print().LastExplanation();
  EXPECT_TRUE(explanation.isRun);
  EXPECT_EQ(explanation.format, "订单");
  EXPECT_EQ(explanation.rows, 2);
  ASSERT_EQ(explanation.items.size(), 4U) << ExplanationText(explanation, Language::kEnglish);
  EXPECT_EQ(explanation.items[0].leftOut.at(0).cause, Cause::kMissingColumn);
  EXPECT_EQ(explanation.items[0].leftOut.at(0).column, "FCustName");
  EXPECT_TRUE(explanation.items[1].IsAsTheFormatSays());
  EXPECT_EQ(explanation.items[2].leftOut.at(0).cause, Cause::kFailedStep);
  EXPECT_EQ(explanation.items[3].leftOut.at(0).cause, Cause::kUnknownBand);
}

TEST_F(ExplainedPrint, HasNoneWithoutTheWish) {
  EXPECT_FALSE(Print().LastExplanation().isRun);
  options_.explain = true;
  desktop_->PutOptions(options_);
  EXPECT_FALSE(desktop_->LastExplanation().isRun) << "of a print before";
}

TEST_F(ExplainedPrint, ForgetsItsExplanationWhenNobodyWantsItAnyMore) {
  options_.explain = true;
  Print();
  desktop_->PutOptions(options_);
  EXPECT_TRUE(desktop_->LastExplanation().isRun);
  options_.explain = false;
  desktop_->PutOptions(options_);
  EXPECT_FALSE(desktop_->LastExplanation().isRun);
}

TEST_F(ExplainedPrint, KnowsWhereItsMessagesCameFrom) {
  const DocumentOutcome outcome = Print().LastDocument();
  ASSERT_EQ(outcome.texts.size(), 1U);
  ASSERT_EQ(outcome.places.size(), 1U);
  EXPECT_NE(outcome.places[0].find("订单"), std::string::npos) << outcome.places[0];
  EXPECT_NE(outcome.places[0].find("7"), std::string::npos) << "the bill";
  EXPECT_EQ(outcome.texts[0].find("订单"), std::string::npos) << "the text stays as it is";
}

TEST_F(ExplainedPrint, KnowsWhereItIs) {
  std::vector<RunPlace> places;
  options_.onPage = [&](int) { places.push_back(desktop_->CurrentPlace()); };
  EXPECT_FALSE(Print().CurrentPlace().IsKnown()) << "after the print";
  ASSERT_EQ(places.size(), 1U);
  EXPECT_EQ(places[0].format, "订单");
  EXPECT_EQ(places[0].billType, 21);
}

}  // namespace
}  // namespace td
