// What the computed fields print in each band, as docs/formats.md tells it.
#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

// The texts of each page of two bills, of three lines and of one, with two rows on a page and the
// field in all bands; each text begins with its band.
Pages PagesWith(const std::string& field, bool footerPerPage) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 2}, {"FHeaderPerPage", 1}, {"FFooterPerPage", footerPerPage}});
  scenario.Variable("变量", field);
  for (int site = 1; site <= 5; ++site) {
    scenario.Item({{"FSite", site},
                   {"FIsVariant", 1},
                   {"FObjectFieldName", "变量"},
                   {"FObjectCaption", std::to_string(site) + ":"}});
  }
  scenario.Data({"FInterID", "FAmount", "FMainQty", "FMUnit", "FSlaveQty", "FUnit", "FSumAmount"},
                {{1, 10, 1, "箱", 2, "瓶", 60},
                 {1, 20, 2, "箱", 0, "瓶", 60},
                 {1, 30, 3, "箱", 0, "瓶", 60},
                 {2, 40, 4, "箱", 0, "瓶", 40}});
  return scenario.Run().TextsByPage();
}

TEST(FieldsByBand, SumsOfThePageStandAsThePageBeforeInTheColumnHead) {
  EXPECT_EQ(PagesWith("ftotalpage", false), (Pages{{"2:0", "3:10", "3:30", "4:30"},
                                                   {"2:30", "3:30", "4:30", "5:30"},
                                                   {"2:30", "3:40", "4:40", "5:40"}}));
}

TEST(FieldsByBand, SumsOfThePrintAreCarriedForwardInTheColumnHead) {
  const Pages carried = {{"2:0", "3:10", "3:30", "4:30", "5:30"},
                         {"2:30", "3:60", "4:60", "5:60"},
                         {"2:60", "3:100", "4:100", "5:100"}};
  EXPECT_EQ(PagesWith("FSumTotalPage", true), carried);
  EXPECT_EQ(PagesWith("ftotalpage_1", true), carried);
}

TEST(FieldsByBand, TheRowsNumberIsThatOfTheNextRowBehindTheRows) {
  EXPECT_EQ(PagesWith("forderid", false), (Pages{{"2:0", "3:1", "3:2", "4:3"},
                                                 {"2:3", "3:3", "4:4", "5:4"},
                                                 {"2:4", "3:4", "4:5", "5:5"}}));
}

TEST(FieldsByBand, ThePageOfTheBillIsZeroInTheFootOfABillsLastPage) {
  EXPECT_EQ(PagesWith("fpageno", true), (Pages{{"1:1", "2:1", "3:1", "3:1", "4:1", "5:1"},
                                               {"1:2", "2:2", "3:2", "4:2", "5:0"},
                                               {"1:3", "2:1", "3:1", "4:1", "5:1"}}));
}

TEST(FieldsByBand, ComposedQuantitiesEndTheBandsBehindTheLastRow) {
  EXPECT_EQ(PagesWith("fcomplexqty", false), (Pages{{"2:1箱+2瓶", "3:1箱+2瓶", "3:2箱", "4:2箱"},
                                                    {"2:3箱", "3:3箱", "4:4箱", "5:4箱"},
                                                    {"2:4箱", "3:4箱"}}));
}

TEST(FieldsByBand, ABillsTotalInCapitalsIsTheNextBillsInAFootOnEveryPage) {
  EXPECT_EQ(PagesWith("fsumamount_dx", true),
            (Pages{{"2:陆拾圆整", "3:陆拾圆整", "3:陆拾圆整", "4:陆拾圆整", "5:陆拾圆整"},
                   {"2:陆拾圆整", "3:陆拾圆整", "4:陆拾圆整", "5:肆拾圆整"},
                   {"2:肆拾圆整", "3:肆拾圆整", "4:肆拾圆整", "5:肆拾圆整"}}));
}

TEST(FieldsByBand, OneRowAPagePrintsTheHeadOfEachLaterBillTwice) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 1}, {"FHeaderPerPage", 1}});
  scenario.FieldItem("FBillNo", {{"FSite", 1}, {"FIsVariant", 1}}).FieldItem("FName");
  scenario.Data({"FInterID", "FBillNo", "FName"}, {{1, "A", "a"}, {2, "B", "b"}, {3, "C", "c"}});
  EXPECT_EQ(scenario.Run().TextsByPage(),
            (Pages{{"A", "a"}, {"B"}, {"B", "b"}, {"C"}, {"C", "c"}}));
}

TEST(FieldsByBand, OneRowAPageIsOnePageARowForRowsThatBelongToNoBill) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 1}, {"FHeaderPerPage", 1}});
  scenario.FieldItem("FBillNo", {{"FSite", 1}, {"FIsVariant", 1}}).FieldItem("FName");
  scenario.Data({"FInterID", "FBillNo", "FName"}, {{0, "A", "a"}, {0, "B", "b"}, {0, "C", "c"}});
  EXPECT_EQ(scenario.Run().TextsByPage(), (Pages{{"A", "a"}, {"B", "b"}, {"C", "c"}}));
}

}  // namespace
}  // namespace td
