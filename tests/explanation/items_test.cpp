// What an explanation tells of each item of a format.
#include <gtest/gtest.h>

#include "explained_scenario.h"

namespace td {
namespace {

TEST(ExplainedItems, AnItemOnThePaperIsAsTheFormatSays) {
  Scenario scenario;
  scenario.FieldItem("FName").Line({}).Item({{"FSite", 1}, {"FObjectCaption", "订单"}});
  scenario.Bills({3});
  const Explanation explanation = Explained(scenario);
  EXPECT_TRUE(explanation.isRun);
  EXPECT_EQ(explanation.format, "销售单");
  EXPECT_EQ(explanation.billType, 21);
  ASSERT_EQ(explanation.items.size(), 3U);
  for (const ExplainedItem& item : explanation.items) EXPECT_TRUE(item.IsAsTheFormatSays());
  const ExplainedItem name = ItemOf(explanation, "FName");
  EXPECT_EQ(name.reached, 3);
  EXPECT_EQ(name.drawn, 3);
  EXPECT_EQ(name.variable, "FName");
  EXPECT_EQ(name.band, 3);
}

TEST(ExplainedItems, AMissingColumnIsNamedWithItsFirstCase) {
  Scenario scenario;
  scenario.FieldItem("FGone");
  scenario.Data({"FInterID", "FBillNo"}, {{1, "XD-1"}, {1, "XD-1"}, {2, "XD-2"}});
  const ExplainedItem item = ItemOf(Explained(scenario), "FGone");
  EXPECT_EQ(item.drawn, 0);
  EXPECT_EQ(item.reached, 3);
  const Reason reason = TheOne(item.leftOut);
  EXPECT_EQ(reason.cause, Cause::kMissingColumn);
  EXPECT_EQ(reason.column, "FGone");
  EXPECT_EQ(reason.times, 3);
  EXPECT_EQ(reason.bill, "XD-1");
  EXPECT_EQ(reason.row, 1);
  EXPECT_EQ(reason.page, 1);
}

TEST(ExplainedItems, ColumnsOfTheTablesAreToldFromThoseOfTheData) {
  Scenario scenario;
  scenario.FieldItem("fsumamount_dx");
  scenario.Item({{"FObjectCaption", "固定"}, {"FWidth", nullptr}});
  scenario.DropColumn("TDBillDetail", "FFormatString");
  scenario.Data({"FInterID", "FSumAmount"}, {{1, 5}});
  const Explanation explanation = Explained(scenario);
  EXPECT_EQ(TheOne(ItemOf(explanation, "固定").leftOut).cause, Cause::kNullItemColumn);
  EXPECT_EQ(TheOne(ItemOf(explanation, "固定").leftOut).column, "FWidth");
  const ExplainedItem sum = ItemOf(explanation, "fsumamount_dx");
  EXPECT_EQ(sum.drawn, 1);
  EXPECT_EQ(TheOne(sum.otherwise).cause, Cause::kMissingItemColumn);
  EXPECT_EQ(TheOne(sum.otherwise).column, "FFormatString");
}

TEST(ExplainedItems, ANullThatSkipsAStepNamesItsColumn) {
  Scenario scenario;
  scenario.FieldItem("fsumamount_dx");
  scenario.Data({"FInterID", "FSumAmount"}, {{1, nullptr}});
  const Reason reason = TheOne(ItemOf(Explained(scenario), "fsumamount_dx").leftOut);
  EXPECT_EQ(reason.cause, Cause::kNullColumn);
  EXPECT_EQ(reason.column, "FSumAmount");
}

TEST(ExplainedItems, ANullIsToldFromAnEmptyTextWhereTheBoxIsEmpty) {
  Scenario scenario;
  scenario.FieldItem("FNull").FieldItem("FEmpty").FieldItem("FFull");
  scenario.Data({"FInterID", "FNull", "FEmpty", "FFull"},
                {{1, nullptr, "", "满"}, {1, nullptr, "有", "满"}});
  const Explanation explanation = Explained(scenario);
  const ExplainedItem null = ItemOf(explanation, "FNull");
  EXPECT_EQ(null.empty, 2);
  EXPECT_EQ(TheOne(null.otherwise).cause, Cause::kNullColumn);
  EXPECT_EQ(TheOne(null.otherwise).times, 2);
  const ExplainedItem empty = ItemOf(explanation, "FEmpty");
  EXPECT_EQ(empty.empty, 1);
  EXPECT_EQ(TheOne(empty.otherwise).cause, Cause::kEmptyValue);
  EXPECT_EQ(TheOne(empty.otherwise).times, 1);
  EXPECT_TRUE(ItemOf(explanation, "FFull").IsAsTheFormatSays());
}

TEST(ExplainedItems, ANullInABoxOfTheHeadLeavesItOut) {
  Scenario scenario;
  scenario.FieldItem("FNote", {{"FSite", 1}});
  scenario.Data({"FInterID", "FNote"}, {{1, nullptr}});
  const Reason reason = TheOne(ItemOf(Explained(scenario), "FNote").leftOut);
  EXPECT_EQ(reason.cause, Cause::kNullInBox);
  EXPECT_EQ(reason.column, "FNote");
}

TEST(ExplainedItems, AMisspeltVariableIsTold) {
  Scenario scenario;
  scenario.Variable("客户", "FName");
  scenario.Item({{"FObjectFieldName", "客户 "}, {"FObjectCaption", "甲"}});
  scenario.Item({{"FSite", 1}, {"FObjectFieldName", "客"}, {"FObjectCaption", "乙"}});
  scenario.Item({{"FObjectFieldName", "客户"}, {"FObjectCaption", "丙"}});
  scenario.Item({{"FObjectFieldName", "<商品图>"}, {"FObjectCaption", "丁"}});
  const Explanation explanation = Explained(scenario);
  EXPECT_EQ(TheOne(ItemOf(explanation, "甲").otherwise).cause, Cause::kUnknownVariable);
  EXPECT_EQ(ItemOf(explanation, "甲").name, "客户 ");
  EXPECT_EQ(TheOne(ItemOf(explanation, "乙").otherwise).cause, Cause::kUnknownVariable);
  EXPECT_TRUE(ItemOf(explanation, "丙").IsAsTheFormatSays());
  EXPECT_EQ(TheOne(ItemOf(explanation, "丁").otherwise).cause, Cause::kUnknownImage);
}

TEST(ExplainedItems, ALabelThatIsClearedIsToldOnlyOfFixedTexts) {
  Scenario scenario;
  scenario.Item({{"FObjectFieldName", "数量"}, {"FObjectCaption", "数量"}}).FieldItem("FName");
  const Explanation explanation = Explained(scenario);
  const ExplainedItem fixed = ItemOf(explanation, "数量");
  EXPECT_EQ(fixed.empty, 1);
  ASSERT_EQ(fixed.otherwise.size(), 2U);
  EXPECT_EQ(fixed.otherwise[0].cause, Cause::kRepeatedCaption);
  EXPECT_EQ(fixed.otherwise[1].cause, Cause::kUnknownVariable);
  EXPECT_TRUE(ItemOf(explanation, "FName").IsAsTheFormatSays());
}

TEST(ExplainedItems, ALabelThatRepeatsItsNameIsDrawnInTheHead) {
  Scenario scenario;
  scenario.Item(
      {{"FSite", 1}, {"FObjectFieldName", "<单号条码图>"}, {"FObjectCaption", "<单号条码图>"}});
  scenario.Item({{"FSite", 1}, {"FObjectFieldName", "数量"}, {"FObjectCaption", "数量"}});
  scenario.Data({"FInterID", "FBillNo"}, {{1, "A"}});
  const Explanation explanation = Explained(scenario);
  EXPECT_TRUE(ItemOf(explanation, "<单号条码图>").IsAsTheFormatSays());
  EXPECT_EQ(TheOne(ItemOf(explanation, "数量").otherwise).cause, Cause::kUnknownVariable);
}

TEST(ExplainedItems, QuantitiesTellWhatTheyLack) {
  Scenario scenario;
  scenario.FieldItem("fcomplexqty").FieldItem("fcomplexqty_in").FieldItem("fcomplexqty_out");
  scenario.Data({"FInterID", "FMainQty", "FMainQty_In"}, {{1, 0, nullptr}});
  const Explanation explanation = Explained(scenario);
  EXPECT_EQ(TheOne(ItemOf(explanation, "fcomplexqty").otherwise).cause,
            Cause::kQuantityNotComposed);
  const Reason in = TheOne(ItemOf(explanation, "fcomplexqty_in").leftOut);
  EXPECT_EQ(in.cause, Cause::kNullDirection);
  EXPECT_EQ(in.column, "FMainQty_In");
  const Reason out = TheOne(ItemOf(explanation, "fcomplexqty_out").leftOut);
  EXPECT_EQ(out.cause, Cause::kMissingColumn) << "the test for Null failed, and so it held";
  EXPECT_EQ(out.column, "FQty_out");
}

TEST(ExplainedItems, ImagesTellWhatTheyLack) {
  Scenario scenario;
  scenario.Item({{"FObjectFieldName", "<商品图片>"}, {"FObjectCaption", "图"}});
  scenario.Item({{"FObjectFieldName", "<单号条码图>"}, {"FObjectCaption", "码"}});
  scenario.Data({"FInterID", "FItemiD"}, {{1, 7}});
  const Explanation explanation = Explained(scenario);
  EXPECT_EQ(TheOne(ItemOf(explanation, "图").leftOut).cause, Cause::kNoPicture);
  const ExplainedItem barcode = ItemOf(explanation, "码");
  EXPECT_EQ(barcode.drawn, 1) << "the code of the last text";
  EXPECT_EQ(TheOne(barcode.otherwise).column, "FBillNo");
}

TEST(ExplainedItems, AnUnknownKindAndAFailedStepAreTold) {
  Scenario scenario;
  scenario.Item({{"FTypeID", 5}, {"FObjectCaption", "五"}});
  scenario.Item({{"FTypeID", 2}, {"FPicturePath", "/gone.png"}, {"FObjectCaption", "图"}});
  scenario.Item({{"FObjectCaption", "后面"}});
  const Explanation explanation = Explained(scenario);
  EXPECT_EQ(TheOne(ItemOf(explanation, "五").leftOut).cause, Cause::kUnknownKind);
  const Reason picture = TheOne(ItemOf(explanation, "图").leftOut);
  EXPECT_EQ(picture.cause, Cause::kFailedStep);
  EXPECT_FALSE(picture.words.empty());
  const ExplainedItem behind = ItemOf(explanation, "后面");
  EXPECT_EQ(behind.reached, 0);
  EXPECT_EQ(TheOne(behind.leftOut).cause, Cause::kBandStopped);
  EXPECT_EQ(TheOne(behind.leftOut).words, picture.words);
}

TEST(ExplainedItems, ABandThatStopsOnceIsToldOfTheItemsBehind) {
  Scenario scenario;
  scenario.FieldItem("FName").Item({{"FObjectCaption", "后面"}});
  scenario.Fault({{"on", "TextBox"}, {"nth", 3}, {"number", 57}, {"description", "卡纸"}});
  scenario.Bills({3});
  const Explanation explanation = Explained(scenario);
  const ExplainedItem behind = ItemOf(explanation, "后面");
  EXPECT_EQ(behind.drawn, 2);
  EXPECT_EQ(TheOne(behind.leftOut).times, 1);
  EXPECT_EQ(TheOne(behind.leftOut).words, "卡纸");
  EXPECT_EQ(TheOne(behind.leftOut).row, 2);
  EXPECT_EQ(TheOne(ItemOf(explanation, "FName").leftOut).cause, Cause::kFailedStep);
}

TEST(ExplainedItems, AFailedGoodsPictureEndsOnlyItsOwnRoutine) {
  Scenario scenario;
  scenario.Item({{"FObjectFieldName", "<商品图片>"}, {"FObjectCaption", "图"}});
  scenario.Item({{"FObjectCaption", "后面"}});
  scenario.GoodsPicture(7, nullptr);
  scenario.Data({"FInterID", "FItemiD"}, {{1, 7}});
  const Explanation explanation = Explained(scenario);
  EXPECT_EQ(TheOne(ItemOf(explanation, "图").leftOut).cause, Cause::kFailedStep);
  EXPECT_TRUE(ItemOf(explanation, "后面").IsAsTheFormatSays());
}

TEST(ExplainedItems, ItemsThatNoBandReachesAreTold) {
  Scenario scenario;
  scenario.Item({{"FSite", 9}, {"FObjectCaption", "九"}});
  scenario.Item({{"FTop", -1}, {"FObjectCaption", "隐藏"}});
  scenario.Item({{"FSite", 1}, {"FTop", -1}, {"FObjectCaption", "页眉"}});
  const Explanation explanation = Explained(scenario);
  EXPECT_EQ(TheOne(ItemOf(explanation, "九").leftOut).cause, Cause::kUnknownBand);
  EXPECT_EQ(TheOne(ItemOf(explanation, "隐藏").leftOut).cause, Cause::kHiddenPosition);
  EXPECT_TRUE(ItemOf(explanation, "页眉").IsAsTheFormatSays()) << "the head has no hidden places";
}

TEST(ExplainedItems, OnAPrePrintedSheetFixedItemsAreNotVariable) {
  Scenario scenario;
  scenario.Item({{"FObjectCaption", "固定"}}).FieldItem("FName", {{"FIsVariant", 1}});
  scenario.Item({{"FObjectCaption", "必印"}, {"FMustPrint", 1}});
  scenario.Print({{"New_OnlyPrintVariantItem", true}});
  const Explanation explanation = Explained(scenario);
  EXPECT_TRUE(explanation.onlyVariantItems);
  EXPECT_EQ(TheOne(ItemOf(explanation, "固定").leftOut).cause, Cause::kNotVariable);
  EXPECT_TRUE(ItemOf(explanation, "FName").IsAsTheFormatSays());
  EXPECT_TRUE(ItemOf(explanation, "必印").IsAsTheFormatSays());
}

TEST(ExplainedItems, ABandThatThePrintLeavesOutIsTold) {
  Scenario scenario;
  scenario.Item({{"FSite", 5}, {"FObjectCaption", "页脚"}}).BlankRows(1).Print();
  scenario.Bills({2});
  EXPECT_EQ(TheOne(ItemOf(Explained(scenario), "页脚").leftOut).cause, Cause::kBandNotDrawn);
}

TEST(ExplainedItems, TheHeadOfAStartedSheetIsEmptyOnItsFirstPageOnly) {
  Scenario scenario;
  scenario.FieldItem("FName", {{"FSite", 1}, {"FIsVariant", 1}}).BlankRows(1).Print();
  scenario.Format({{"FRowsPerPage", 2}}).Bills({4});
  const ExplainedItem item = ItemOf(Explained(scenario), "FName");
  EXPECT_EQ(item.drawn, 2);
  EXPECT_EQ(item.empty, 1);
  EXPECT_EQ(TheOne(item.otherwise).cause, Cause::kHeadIsOnSheet);
  EXPECT_EQ(TheOne(item.otherwise).times, 1);
}

TEST(ExplainedItems, EqualItemsAreItemsOfTheirOwn) {
  Scenario scenario;
  scenario.Line({}).Line({});
  scenario.Bills({2});
  const Explanation explanation = Explained(scenario);
  ASSERT_EQ(explanation.items.size(), 2U);
  EXPECT_EQ(explanation.items[0].drawn, 2);
  EXPECT_EQ(explanation.items[1].drawn, 2);
}

TEST(ExplainedItems, TheTotalPageCountIsDrawnWhereItIsStamped) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 1}}).FieldItem("ftotalpageno", {{"FSite", 4}});
  scenario.Bills({3});
  const ExplainedItem item = ItemOf(Explained(scenario), "ftotalpageno");
  EXPECT_EQ(item.reached, 3);
  EXPECT_EQ(item.drawn, 3);
  EXPECT_TRUE(item.leftOut.empty());
}

TEST(ExplainedItems, ATotalPageCountThatIsNotStampedSaysWhy) {
  Scenario scenario;
  scenario.Variable("总页数", "ftotalpageno");
  scenario.Item({{"FSite", 5}, {"FObjectFieldName", "总页数"}, {"FObjectCaption", "一"}});
  scenario.Item({{"FSite", 5}, {"FObjectFieldName", "总页数"}, {"FObjectCaption", "二"}});
  scenario.Item(
      {{"FSite", 2}, {"FObjectFieldName", "总页数"}, {"FObjectCaption", "三"}, {"FFontName", ""}});
  const Explanation explanation = Explained(scenario);
  EXPECT_EQ(TheOne(ItemOf(explanation, "一").leftOut).cause, Cause::kStampTaken);
  EXPECT_EQ(ItemOf(explanation, "二").drawn, 1);
  EXPECT_EQ(TheOne(ItemOf(explanation, "三").leftOut).cause, Cause::kStampNotWritten);
}

TEST(ExplainedItems, ASumThatTheStockAreaPrintDoesNotKeepIsTold) {
  Scenario scenario;
  scenario.FieldItem("ftotalpagetax_1").PrintByArea();
  const Explanation explanation = Explained(scenario);
  EXPECT_TRUE(explanation.byArea);
  EXPECT_EQ(TheOne(ItemOf(explanation, "ftotalpagetax_1").otherwise).cause, Cause::kSumIsNotKept);
}

TEST(ExplainedItems, TablesThatCannotBeReadAfterwardsAreTold) {
  Scenario scenario;
  scenario.FieldItem("FName");
  const Explanation explanation = Explained(scenario, false);
  EXPECT_FALSE(explanation.unreadItems.empty());
  EXPECT_TRUE(ItemOf(explanation, "FName").IsAsTheFormatSays());
}

TEST(ExplainedItems, ARerunIsExplainedAnew) {
  Scenario scenario;
  scenario.FieldItem("FName");
  scenario.Preview({{{"key", "pageset"}, {"confirm", true}}});
  const Explanation explanation = Explained(scenario);
  EXPECT_EQ(ItemOf(explanation, "FName").drawn, 1);
  EXPECT_EQ(explanation.pages, 1);
}

}  // namespace
}  // namespace td
