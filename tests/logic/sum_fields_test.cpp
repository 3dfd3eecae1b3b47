// The sums that a format may ask for: their names, where each comes from, and their two shapes.
#include <gtest/gtest.h>

#include <ostream>

#include "scenario.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

// Column values tell the sums apart: the second page shows what a sum takes from which rows. The
// row in the middle is outside of all sums but the overall one.
Scenario SumScenario() {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 2}});
  scenario.Data({"FInterID",
                 "FMainQty",
                 "FAmount",
                 "FQty",
                 "FPrice",
                 "FTaxRate",
                 "FRetailAmount",
                 "FBeforeZkAmount",
                 "FSlaveQty",
                 "FCredit",
                 "FDebit",
                 "FPurAmount",
                 "FSaleAmount",
                 "FSkd",
                 "FFkd",
                 "FFreight",
                 "FFreight_Amount",
                 "FSumAmount",
                 "FSumRetailAmount",
                 "FSumTax",
                 "FSumNoTaxAmount",
                 "FSumBzkAmount",
                 "FEarnest"},
                {{1,   1,   10,  3,   11.3, 13,   60,   70,   80,   90,   100, 110,
                  120, 130, 140, 150, 160,  1001, 1002, 1003, 1004, 1005, 1006},
                 {1, -999.99, 500, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 0, 0, 0, 0, 0, 0},
                 {1,   2,   20.5, 4,   113, 13, 61, 71, 81, 91, 101, 111,
                  121, 131, 141,  151, 161, 0,  0,  0,  0,  0,  0}});
  return scenario;
}

struct SumField {
  const char* name;
  const char* plain;      // on the second page
  const char* formatted;  // under the picture of its shape
};

void PrintTo(const SumField& field, std::ostream* out) {
  *out << field.name;
}

std::string NameOf(const testing::TestParamInfo<SumField>& field) {
  return field.param.name;
}

// The field's texts on the second page without a picture, under `picture` and under a Null one.
Texts TextsOf(const SumField& field, const char* picture) {
  Scenario scenario = SumScenario();
  scenario.FieldItem(field.name, {{"FSite", 4}, {"FObjectCaption", "无："}});
  scenario.FieldItem(field.name,
                     {{"FSite", 4}, {"FObjectCaption", "有："}, {"FFormatString", picture}});
  scenario.FieldItem(field.name,
                     {{"FSite", 4}, {"FObjectCaption", "空："}, {"FFormatString", nullptr}});
  const Trace trace = scenario.Run();
  EXPECT_TRUE(trace.Messages().empty());
  return trace.TextsByPage().at(1);
}

Texts Expected(const SumField& field) {
  return {std::string("无：") + field.plain, std::string("有：") + field.formatted};
}

class NumberField : public testing::TestWithParam<SumField> {};

TEST_P(NumberField, ShowsItsSumWithAndWithoutAPictureAndNothingUnderANullOne) {
  EXPECT_EQ(TextsOf(GetParam(), "0.00"), Expected(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(OfThePage, NumberField,
                         testing::Values(SumField{"FTotalPage", "20.5", "20.50"},
                                         SumField{"fTOTALPAGEtax", "52", "52.00"},
                                         SumField{"FTotalPage_RetailAmount", "61", "61.00"},
                                         SumField{"FTOTALPAGE_BZKAMOUNT", "71", "71.00"},
                                         SumField{"FTotalPageNoTaxAmount", "400", "400.00"},
                                         SumField{"FTOTALPAGE_QTY", "4", "4.00"},
                                         SumField{"fTotalPage_SUMqty", "4", "4.00"},
                                         SumField{"FTotalPage_Credit", "91", "91.00"},
                                         SumField{"Ftotalpage_DEBIT", "101", "101.00"},
                                         SumField{"FTotalPage_SlaveQty", "81", "81.00"},
                                         SumField{"ftotalpage_MainQty", "2", "2.00"},
                                         SumField{"fpuramount_TOTALPAGE", "111", "111.00"},
                                         SumField{"FSALEAMOUNT_totalpage", "121", "121.00"},
                                         SumField{"fskd_totalpage", "131", "131.00"},
                                         SumField{"FFKD_TotalPage", "141", "141.00"}),
                         NameOf);

INSTANTIATE_TEST_SUITE_P(OfTheRun, NumberField,
                         testing::Values(SumField{"FTotalPage_1", "30.5", "30.50"},
                                         SumField{"fsumTOTALPAGE", "530.5", "530.50"},
                                         SumField{"FTotalPageTax_1", "55.9", "55.90"},
                                         SumField{"FTOTALPAGENOTAXAMOUNT_1", "430", "430.00"},
                                         SumField{"FTotalPageSelfFreight", "301", "301.00"},
                                         SumField{"FTotalPage_MainQty_1", "3", "3.00"},
                                         SumField{"ftotalpagefreight_amount", "321", "321.00"}),
                         NameOf);

class WordsField : public testing::TestWithParam<SumField> {};

TEST_P(WordsField, ShowsCapitalsAndAPictureIsAppliedToTheCapitals) {
  EXPECT_EQ(TextsOf(GetParam(), "\"人民币\"&"), Expected(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(
    OfTheSums, WordsField,
    testing::Values(SumField{"FTotalPageDx", "贰拾圆伍角整", "人民币贰拾圆伍角整"},
                    SumField{"ftotalpage_1_DX", "叁拾圆伍角整", "人民币叁拾圆伍角整"},
                    SumField{"FTotalPageTax_1_Dx", "伍拾伍圆玖角整", "人民币伍拾伍圆玖角整"},
                    SumField{"FTotalPageNoTaxAmount_1_Dx", "肆佰叁拾圆整", "人民币肆佰叁拾圆整"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    OfTheBillsFirstRow, WordsField,
    testing::Values(SumField{"FSumAmount_DX", "壹仟零壹圆整", "人民币壹仟零壹圆整"},
                    SumField{"FSUMRETAILAMOUNT_dx", "壹仟零贰圆整", "人民币壹仟零贰圆整"},
                    SumField{"FSumTax_Dx", "壹仟零叁圆整", "人民币壹仟零叁圆整"},
                    SumField{"fsumNOtaxamount_Dx", "壹仟零肆圆整", "人民币壹仟零肆圆整"},
                    SumField{"fsumbzkamount_dx", "壹仟零伍圆整", "人民币壹仟零伍圆整"},
                    SumField{"FEarnest_Dx", "壹仟零陆圆整", "人民币壹仟零陆圆整"}),
    NameOf);

// A field in the band behind the rows, on a bill of one row.
Scenario OneRow(const std::string& field, const std::string& column, const Json& value) {
  Scenario scenario;
  scenario.FieldItem(field, {{"FSite", 4}, {"FObjectCaption", "计："}});
  scenario.Data({"FInterID", "FMainQty", column}, {{1, 1, value}});
  return scenario;
}

TEST(SumFields, ASumOfZeroPrintsTheCaptionAndZero) {
  EXPECT_EQ(OneRow("ftotalpage", "FAmount", 0).Run().Texts(), (Texts{"计：0"}));
}

TEST(SumFields, ASumOfZeroInCapitalsIsTheWordThatEndsAmounts) {
  EXPECT_EQ(OneRow("ftotalpagedx", "FAmount", 0).Run().Texts(), (Texts{"计：整"}));
}

TEST(SumFields, WithoutTheAmountsColumnAreZero) {
  Scenario scenario;
  for (const char* field : {"ftotalpage", "ftotalpage_1", "fsumtotalpage"}) {
    scenario.FieldItem(field, {{"FSite", 4}});
  }
  scenario.Data({"FInterID", "FMainQty"}, {{1, 2}, {1, 3}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"0", "0", "0"}));
  EXPECT_TRUE(trace.Messages().empty());
}

TEST(SumFields, NegativeSumsKeepTheirSign) {
  EXPECT_EQ(OneRow("ftotalpage", "FAmount", -12.5).Run().Texts(), (Texts{"计：-12.5"}));
  EXPECT_EQ(OneRow("ftotalpagedx", "FAmount", -12.5).Run().Texts(),
            (Texts{"计：(负)壹拾贰圆伍角整"}));
}

TEST(SumFields, ASumIsNotRounded) {
  EXPECT_EQ(OneRow("ftotalpage", "FAmount", 0.123456789).Run().Texts(), (Texts{"计：0.123456789"}));
}

TEST(SumFields, ALabelThatRepeatsTheItemsNameIsLeftOut) {
  Scenario scenario = OneRow("ftotalpage", "FAmount", 5);
  scenario.FieldItem("FTotalPage", {{"FSite", 4}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"计：5", "5"}));
}

TEST(SumFields, ANumberPictureLeavesCapitalsUnharmed) {
  Scenario scenario;
  scenario.FieldItem("ftotalpagedx", {{"FSite", 4}, {"FFormatString", "#,##0.00"}});
  scenario.Data({"FInterID", "FMainQty", "FAmount"}, {{1, 1, 100}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"壹佰圆整"}));
}

TEST(SumFields, WithoutAColumnForPicturesTheValuePrintsPlain) {
  Scenario scenario = OneRow("ftotalpage", "FAmount", 5.5);
  scenario.DropColumn("TDBillDetail", "FFormatString");
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"计：5.5"}));
}

TEST(SumFields, BehindTheRowsOfAPageASumHoldsThePageSoFar) {
  Scenario scenario;
  scenario.FieldItem("ftotalpage", {{"FSite", 3}}).Format({{"FRowsPerPage", 2}});
  scenario.Data({"FInterID", "FMainQty", "FAmount"}, {{1, 1, 1}, {1, 1, 2}, {1, 1, 4}});
  EXPECT_EQ(scenario.Run().TextsByPage(), (Pages{{"1", "3"}, {"4"}})) << "the row itself counts";
}

TEST(SumFields, TheFootOfEachPageStillHoldsThePagesSum) {
  Scenario scenario;
  scenario.FieldItem("ftotalpage", {{"FSite", 5}});
  scenario.Format({{"FRowsPerPage", 2}, {"FFooterPerPage", 1}});
  scenario.Data({"FInterID", "FMainQty", "FAmount"}, {{1, 1, 1}, {1, 1, 2}, {1, 1, 4}});
  EXPECT_EQ(scenario.Run().TextsByPage(), (Pages{{"3"}, {"4"}}));
}

TEST(SumFields, ASumWinsOverAColumnOfTheSameName) {
  Scenario scenario;
  scenario.FieldItem("ftotalpage");
  scenario.Data({"FInterID", "FMainQty", "FAmount", "ftotalpage"}, {{1, 1, 8, 99}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"8"}));
}

TEST(SumFields, InTheHeadTheNameMeansAColumn) {
  Scenario scenario;
  scenario.FieldItem("ftotalpage", {{"FSite", 1}});
  scenario.Data({"FInterID", "FMainQty", "FAmount", "ftotalpage"}, {{1, 1, 8, 99}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"99"}));
}

TEST(SumFields, BillTotalsFollowTheBillNotTheRow) {
  Scenario scenario;
  scenario.FieldItem("fsumamount_dx");
  scenario.Data({"FInterID", "FSumAmount"}, {{1, 3}, {1, 4}, {2, 5}});
  EXPECT_EQ(scenario.Run().TextsByPage(), (Pages{{"叁圆整", "叁圆整"}, {"伍圆整"}}));
}

TEST(SumFields, ABillTotalThatIsMissingOrNullPrintsNeitherValueNorCaption) {
  for (const char* column : {"FOther", "FEarnest"}) {
    Scenario scenario = OneRow("fearnest_dx", column, nullptr);
    scenario.Item({{"FSite", 4}, {"FObjectCaption", "后"}});
    const Trace trace = scenario.Run();
    EXPECT_EQ(trace.Texts(), (Texts{"后"})) << column;
    EXPECT_TRUE(trace.Messages().empty());
  }
}

TEST(SumFields, ABillTotalMayBeTextThatIsANumber) {
  EXPECT_EQ(OneRow("fearnest_dx", "FEarnest", " 1,005.30 ").Run().Texts(),
            (Texts{"计：壹仟零伍圆叁角整"}));
}

TEST(SumFields, ABillTotalThatIsNoNumberEndsTheBandWithAMessage) {
  Scenario scenario = OneRow("fearnest_dx", "FEarnest", "十元");
  scenario.Item({{"FSite", 4}, {"FObjectCaption", "后"}});
  scenario.Item({{"FSite", 5}, {"FObjectCaption", "脚"}});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.Texts(), (Texts{"脚"})) << "the run goes on";
  EXPECT_EQ(trace.Messages().size(), 1U);
}

TEST(SumFields, ABoxWithoutAWidthIsNotDrawn) {
  Scenario scenario;
  scenario.FieldItem("ftotalpage", {{"FSite", 4}, {"FWidth", nullptr}});
  scenario.FieldItem("ftotalpage_1", {{"FSite", 4}});
  EXPECT_EQ(scenario.Run().Texts(), (Texts{"0"}));
}

}  // namespace
}  // namespace td
