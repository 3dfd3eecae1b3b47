// Each kind of finding, in a format of the sample that was broken for it.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "checked_sample.h"
#include "checker/finding_messages.h"
#include "platform/failure.h"
#include "sample_files.h"

namespace td::checker {
namespace {

using enum FindingKind;

constexpr const char* kOrder = "销售订单三联";
constexpr const char* kCatalogue = "带图订货单";

// One row with all that the sales order shows.
constexpr const char* kOrderRows = "select * from v_sales_order where FInterID=21002";

// Bills of one row each, and rows of no bill.
constexpr const char* kTwoOrders =
    "select 1 as FInterID,'A' as FBillNo,0 as FMainQty union all select 2,'B',0";
constexpr const char* kWaybills =
    "select 0 as FInterID,'A' as FBillNo,'甲' as FCustName union all select 0,'B','乙' "
    "union all select 0,'C','丙'";

// The sample's rows with some columns instead of theirs: they come first and so are the ones found.
std::string RowsWith(const std::string& columns) {
  return "select " + columns + ",v.* from v_sales_order v where FInterID=21002";
}

// Takes a table's keys and constraints away, so that it holds what such tables in use hold.
std::string Loosened(const std::string& table) {
  return "drop table if exists loose; create table loose as select * from " + table +
         "; drop view if exists dependent; pragma legacy_alter_table=on; drop table " + table +
         "; alter table loose rename to " + table + ";";
}

std::string Bill(const std::string& change, int bill = 2101) {
  return "update TDBill set " + change + " where FTDBillID=" + std::to_string(bill) + ";";
}

std::string Item(const std::string& variable, const std::string& change, int bill = 2101) {
  return "update TDBillDetail set " + change + " where FTDBillID=" + std::to_string(bill) +
         " and FObjectFieldName='" + variable + "';";
}

std::string Caption(const std::string& caption, const std::string& change, int bill = 2101) {
  return "update TDBillDetail set " + change + " where FTDBillID=" + std::to_string(bill) +
         " and FObjectCaption='" + caption + "' and FObjectFieldName='';";
}

struct Broken {
  FindingKind kind;
  std::string script;
  std::string item;       // the caption of the item that is named; empty: none
  std::string data = {};  // rows of bill type 21
  bool byArea = false;
  std::string format = {};  // empty: all
  std::int16_t type = 21;
};

std::vector<Broken> AllBroken() {
  std::vector<Broken> broken = {
      {kNoFormat, "delete from TDBill where FTranType=21", ""},
      {kNoneSelected, Bill("FSelected=0"), ""},
      {kSeveralSelected, Bill("FSelected=1", 2102), ""},
      {kNameTwice, Loosened("TDBill") + Bill("FTDBillName='销售订单三联'", 2102), ""},
      {kNameQuote, Bill("FTDBillName='老板''s'"), ""},
      {kNameBlanks, Bill("FTDBillName='销售订单三联 '"), ""},
      {kNumberShared, Loosened("TDBill") + Bill("FTDBillID=2102"), ""},
      {kNoItems, "delete from TDBillDetail where FTDBillID=2101", ""},
      {kRowsMissing, Bill("FRowsPerPage=0"), ""},
      {kRowsMissing, Loosened("TDBill") + Bill("FRowsPerPage=null"), ""},
      {kRowsFraction, Bill("FRowsPerPage=9.5"), ""},
      {kRowsOne, Bill("FRowsPerPage=1"), ""},
      {kRowHeightMissing, Bill("FRowHeight=0"), ""},
      {kRowHeightMissing, Loosened("TDBill") + Bill("FRowHeight=null"), ""},
      {kRowHeightSmall, Bill("FRowHeight=6"), ""},
      {kRowsOffSheet, Bill("FRowsPerPage=20"), ""},
      {kRowsOffSheet, Bill("FRowsPerPage=20000"), ""},
      {kPaperMillimetres, Bill("FPaperWidth=241,FPaperHeight=140"), ""},
      {kPaperMillimetres, Bill("FPaperWidth=241"), ""},
      {kPaperMillimetres, Bill("FPaperHeight=140"), ""},
      {kPaperUnknown, Bill("FPaperSize=9999"), ""},
      {kPaperIncomplete, Bill("FPaperWidth=null"), ""},
      {kPaperIncomplete, Bill("FPaperHeight=null"), ""},
      {kPaperTurned, Bill("FOrientation=1"), ""},
      {kPaperKept, Bill("FPaperSize=0"), ""},
      {kItemsMillimetres,
       "update TDBillDetail set FLeft=FLeft/56.7,FTop=FTop/56.7,FWidth=FWidth/56.7,"
       "FHeight=FHeight/56.7 where FTDBillID=2101",
       ""},
      {kPrinterMissing, Bill("FPrintDevice='Lasser'"), ""},
      {kPrinterSheet, Bill("FPrintDevice='Dot'"), ""},
      {kRunMessage, Bill("FRowsPerPage='viele'"), ""},
      {kRunMessage, Item("客户", "FFontSize=5000"), "客户"},
      {kTableColumn, "alter table TDBillDetail drop column FAutoSize", ""},

      {kItemBand, Item("客户", "FSite=6"), "客户"},
      {kItemKind, Item("客户", "FTypeID=7"), "客户"},
      {kItemHidden, Item("金额", "FLeft=-1"), "金额"},
      {kItemNull, Loosened("TDBillDetail") + Item("本页金额", "FFormatString=null"), "本页金额"},
      {kItemNull, Loosened("TDBillDetail") + Item("商品名称", "FLeft=null"), "商品名称"},
      {kItemFontNull, Loosened("TDBillDetail") + Item("客户", "FFontSize=null"), "客户"},
      {kItemCaptionNull, Loosened("TDBillDetail") + Item("金额", "FObjectCaption=null"), "金额"},
      {kVariableUnknown, Item("客户", "FObjectFieldName='客沪'"), "客沪"},
      {kVariableUnknown, Item("客户", "FObjectFieldName='送货路线'"), "送货路线"},
      {kVariableUnmarked, Caption("客户：", "FObjectFieldName='label for the customer'"),
       "label for the customer"},
      {kVariableBlanks, Item("客户", "FObjectFieldName='客户 '"), "客户 "},
      {kVariableTwice,
       Loosened("TDVariant") + "insert into TDVariant values (21,'客户','FContact')", "客户"},
      {kColumnBlanks, "update TDVariant set FVarName='FCustName ' where FVarCaption='客户'",
       "客户"},
      {kImageUnknown, Item("<单号条码图>", "FObjectFieldName='<单号条形码>'", 2103),
       "<单号条形码>"},
      {kImageBand, Item("<用户条码图>", "FSite=2", 2103), "<用户条码图>"},
      {kImageBand, Item("<商品图片>", "FSite=1", 2103), "<商品图片>"},
      {kImageRepeated, Item("<单号条码图>", "FSite=3", 2103), "<单号条码图>"},
      {kFieldBand, Item("本页金额", "FSite=1"), "本页金额"},
      {kFieldBand, Item("本页金额", "FObjectFieldName='复合数量'"), "复合数量"},
      {kOffSheet, Item("客户", "FLeft=30000"), "客户"},
      {kOffSheet, Item("总页数", "FLeft=30000"), "总页数"},
      {kPartlyOffSheet, Caption("客户：", "FLeft=13400"), "客户："},
      {kBehindMargin, Bill("FPrintDevice='Dot'", 2103), "<单号条码图>"},
      {kNoArea, Item("<单号条码图>", "FHeight=0", 2103), "<单号条码图>"},
      {kBoxSize, Item("客户", "FWidth=0"), "客户"},
      {kBoxSize, Item("总页数", "FWidth=0"), "总页数"},
      {kItemMillimetres, Item("客户", "FWidth=80,FHeight=5"), "客户"},
      {kPlaceMillimetres, Item("客户", "FLeft=10,FTop=10"), "客户"},
      {kPlaceMillimetres,
       "update TDBillDetail set FLeft=10,FTop=17 where FTDBillID=2101 and FTypeID=1 and FTop=985",
       ""},
      {kLineLength,
       "update TDBillDetail set FWidth=0,FHeight=0 where FTDBillID=2101 and FTypeID=1 and FTop=985",
       ""},
      {kFontMissing, Item("客户", "FFontName='公司专用字体'"), ""},
      {kFontSize, Item("客户", "FFontSize=0"), "客户"},
      {kFontSize, Item("客户", "FFontSize=-9"), "客户"},
      {kPictureFile, Caption("客户：", "FTypeID=2,FPicturePath='/no/such/logo.png'"), "客户："},
      {kPictureFile, Caption("客户：", "FTypeID=2,FPicturePath='" QBTD_SOURCE_DIR "/README.md'"),
       "客户："},
      {kPicturePath, Caption("客户：", "FTypeID=2,FPicturePath='examples/logo.png'"), "客户："},
      {kFormatString, Item("金额", "FFormatString='No.0'"), "金额"},
      {kFormatString, Item("金额", "FFormatString='RMB0.00'"), "金额"},
      {kFormatString, Item("金额", "FFormatString='0,'"), "金额"},
      {kFormatStringConstant, Item("金额", "FFormatString='元'"), "金额"},
      {kFormatStringDate, Item("金额", "FFormatString='yyyy-mm-dd'"), "金额"},
      {kFormatStringUnused, "", "金额", RowsWith("'12.50元' as FAmount"), false, kOrder},
      {kFormatStringUnused, Item("客户", "FFormatString='0.00'"), "客户"},
      {kPreprintedMissing, Item("客户", "FIsVariant=0"), "客户"},
      {kPreprintedMissing, Item("客户", "FIsVariant=0,FLeft=1700.9291338582677"), "客户"},
      {kPreprintedMissing, Item("<单号条码图>", "FIsVariant=0", 2103), "<单号条码图>"},
      {kTotalPagesTaken,
       Caption("审核：", "FObjectFieldName='总页数'") +
           Caption("仓管：", "FObjectFieldName='总页数'"),
       "总页数"},
      {kTextTooLong, Caption("客户：", "FObjectCaption='客户名称及其全部地址：'"),
       "客户名称及其全部地址："},
      {kTextTooLong, Item("商品名称", "FWidth=500"), "商品名称", kOrderRows},
      {kTextTooHigh, Caption("白联存根", "FHeight=300"), "白联存根"},
      {kTextsOverlap, Caption("单号：", "FLeft=1000"), "客户："},
      {kTextsOverlap, Item("单据编号", "FLeft=1600"), "客户", kOrderRows},
      {kBarcodeRefused, "", "<单号条码图>", RowsWith("'' as FBillNo")},
      {kBarcodeNarrow, Item("<单号条码图>", "FWidth=900", 2103), "<单号条码图>"},
      {kBarcodeNarrow, "", "<单号条码图>",
       RowsWith("'XD-2403-0002/a-very-long-number-for-a-code' as FBillNo")},

      {kDataNoBill, "", "", "select 1 as FAmount"},
      {kDataNoRows, "", "", "select * from v_sales_order where 1=0"},
      {kDataScattered, "", "", "select * from v_sales_order order by FItemName"},
      {kDataNoArea, "", "", "select 1 as FInterID", true},
      {kAreasScattered, "", "",
       "select 1 as FInterID,'A1' as FStockArea union all select 1,'B' union all select 1,'A2'",
       true},
      {kColumnMissing, "update TDVariant set FVarName='FCustNam' where FVarCaption='客户'", "客户",
       kOrderRows},
      {kImageColumnMissing, "", "<商品图片>", "select FInterID,FBillNo from v_sales_order"},
      {kImageValueNull, "", "<单号条码图>", RowsWith("null as FBillNo")},
      {kNextBill, Item("整单金额", "FObjectFieldName='金额',FFormatString='0.00'"), "金额",
       "select * from v_sales_order where FInterID in (21002,21007) order by FInterID"},
      {kValueNull, "", "备注", RowsWith("null as FNote")},
      {kValueAlwaysNull, "", "规格型号", RowsWith("null as FModel")},
      {kSumColumnMissing, "", "本页金额", "select 1 as FInterID, 2 as FMainQty, 3 as FQty"},
      {kMarkerColumnMissing, "", "本页金额", "select 1 as FInterID, 2 as FAmount, 3 as FQty"},
      {kMarkerRows, "", "", "select * from v_sales_order where FInterID=21005"},
      {kRowsOne, Bill("FRowsPerPage=1"), "", kTwoOrders, false, kOrder},
      {kRowsNowhere,
       Bill("FRowsPerPage=2") + "delete from TDBillDetail where FTDBillID=2101 and FSite>1", "",
       kWaybills, false, kOrder},
      {kAmountText, "", "本页金额", RowsWith("'1,234.50' as FAmount")},

      {kMachineNoFormat, "insert into TDBill_PaperSize values ('192.0.2.8','旧订单',9,0,0,0,'')",
       ""},
      {kMachineSheet,
       "insert into TDBill_PaperSize values ('192.0.2.8','销售订单三联',256,1,1,0,'')", ""},
      {kMachinePaper,
       "insert into TDBill_PaperSize values ('192.0.2.8','销售订单三联',777,1,1,0,'')", ""},
      {kMachinePaper,
       "insert into TDBill_PaperSize values ('192.0.2.8','销售订单三联',99999999999,1,1,0,'')", ""},
      {kMachinePrinter,
       "insert into TDBill_PaperSize values ('192.0.2.7','销售订单三联',9,1,1,0,'Gone')", ""},
      {kAreaNoFormat,
       "insert into TDBill_AreaPrinterDevice values ('192.0.2.8',21,'旧订单','A','Dot')", ""},
      {kAreaPrinter,
       "insert into TDBill_AreaPrinterDevice values ('192.0.2.7',21,'销售订单三联','A','Gone')",
       ""},
  };
  // Rows are of one bill type; settings of names that no type has are told of when all are checked.
  for (Broken& one : broken) {
    if (one.kind == kMachineNoFormat || one.kind == kAreaNoFormat) one.type = 0;
  }
  return broken;
}

std::string IdOf(FindingKind kind) {
  return std::string(MessageOf(kind).id);
}

std::string Listed(const CheckResult& result) {
  std::string list;
  for (const Finding& finding : result.findings) {
    list += IdOf(finding.kind) + " " + finding.format + " " +
            (finding.item ? finding.item->caption : "") + "\n";
  }
  return list;
}

bool Has(const CheckResult& result, const Broken& broken) {
  return std::ranges::any_of(result.findings, [&](const Finding& finding) {
    const std::string caption = finding.item ? finding.item->caption : "";
    return finding.kind == broken.kind && caption == broken.item;
  });
}

CheckResult CheckBroken(CheckedSample& sample, const Broken& broken) {
  Selection selection{{}, broken.format};
  if (broken.type != 0) selection.billType = broken.type;
  return sample.Check(selection, broken.data, broken.byArea);
}

class CheckerFindings : public testing::Test {
 protected:
  CheckerFindings() { std::filesystem::current_path(QBTD_SOURCE_DIR); }
};

TEST_F(CheckerFindings, EachMistakeIsFound) {
  for (const Broken& broken : AllBroken()) {
    CheckedSample sample;
    if (!broken.script.empty()) sample.Run(broken.script);
    const CheckResult result = CheckBroken(sample, broken);
    EXPECT_TRUE(Has(result, broken))
        << IdOf(broken.kind) << " is not among\n"
        << Listed(result) << "after " << broken.script << " " << broken.data;
  }
}

TEST_F(CheckerFindings, EachKindHasABrokenFormat) {
  std::set<FindingKind> tested;
  for (const Broken& broken : AllBroken()) tested.insert(broken.kind);
  for (const FindingMessage& message : FindingMessages()) {
    EXPECT_TRUE(tested.contains(message.kind)) << message.id;
  }
}

TEST_F(CheckerFindings, WhatWasNotBrokenIsNotFound) {
  const CheckedSample sample;
  const CheckResult result = sample.Check();
  EXPECT_EQ(Listed(result), "");
  EXPECT_EQ(result.formats, 9);
}

TEST_F(CheckerFindings, TheSamplesHaveNothingButHintsWithTheirRows) {
  const CheckedSample sample;
  int hints = 0;
  for (const SamplePrint& print : ReadSamplePrints(QBTD_SOURCE_DIR "/examples")) {
    const CheckResult result =
        sample.Check({print.billType, print.format}, print.data, print.byArea);
    EXPECT_EQ(WorstOf(result.findings), Severity::kHint) << print.name << "\n" << Listed(result);
    hints += CountOf(result.findings, Severity::kHint);
  }
  EXPECT_LE(hints, 10);
}

TEST_F(CheckerFindings, AMendedFormatIsCleanAgain) {
  for (const Broken& broken : AllBroken()) {
    CheckedSample sample;
    if (!broken.script.empty()) sample.Run(broken.script);
    const CheckResult result = CheckBroken(sample, broken);
    const auto found = std::ranges::find(result.findings, broken.kind, &Finding::kind);
    if (found == result.findings.end() || found->sql.empty()) continue;
    sample.Run(found->sql);
    EXPECT_FALSE(Has(CheckBroken(sample, broken), broken)) << IdOf(broken.kind) << found->sql;
  }
}

// The first finding of a kind; the test fails when there is none, with words that are empty.
Finding TheFirst(const CheckResult& result, FindingKind kind) {
  constexpr std::size_t kMostArguments = 10;
  const auto found = std::ranges::find(result.findings, kind, &Finding::kind);
  EXPECT_NE(found, result.findings.end()) << IdOf(kind) << " is not among\n" << Listed(result);
  if (found != result.findings.end()) return *found;
  return {.kind = kind, .arguments = std::vector<std::string>(kMostArguments)};
}

// The same of the sales order as the sample has it, over the rows of a query.
Finding FirstInSample(FindingKind kind, const std::string& rows) {
  return TheFirst(CheckedSample().Check({21, kOrder}, rows), kind);
}

TEST_F(CheckerFindings, TheNameThatWasMeantIsTold) {
  CheckedSample sample;
  sample.Run(Item("客户", "FObjectFieldName='客沪'"));
  const CheckResult result = sample.Check({21, kOrder});
  ASSERT_EQ(result.findings.size(), 1U) << Listed(result);
  EXPECT_EQ(result.findings[0].arguments[1], "客户");
  EXPECT_NE(result.findings[0].sql.find("FObjectFieldName='客户'"), std::string::npos);
}

TEST_F(CheckerFindings, ANameThatIsNoImageTellsWhichIsNear) {
  CheckedSample sample;
  sample.Run(Item("<单号条码图>", "FObjectFieldName='＜单号条码图＞'", 2103));
  const CheckResult result = sample.Check({21, kCatalogue});
  ASSERT_EQ(result.findings.size(), 1U) << Listed(result);
  EXPECT_EQ(result.findings[0].arguments[1], "<单号条码图>");
}

TEST_F(CheckerFindings, TheColumnThatWasMeantIsTold) {
  CheckedSample sample;
  sample.Run(
      "insert into TDVariant values (21,'客户名','FCustName');"
      "update TDVariant set FVarName='FCustNam' where FVarCaption='客户'");
  const CheckResult result = sample.Check({21, kOrder}, kOrderRows);
  const Finding found = TheFirst(result, kColumnMissing);
  EXPECT_EQ(found.arguments[1], "FCustName");
}

TEST_F(CheckerFindings, AnImplausibleSheetIsOneFinding) {
  for (const char* change : {"FPaperWidth=241", "FPaperHeight=140"}) {
    CheckedSample sample;
    sample.Run(Bill(change));
    EXPECT_EQ(Listed(sample.Check({21, kOrder})), "paper-millimetres 销售订单三联 \n") << change;
    const CheckResult result = sample.Check({21, kOrder}, kOrderRows);
    EXPECT_EQ(CountOf(result.findings, Severity::kError), 1) << Listed(result);
    EXPECT_EQ(CountOf(result.findings, Severity::kWarning), 0) << Listed(result);
  }
}

TEST_F(CheckerFindings, NumbersInSentencesAreRounded) {
  CheckedSample sample;
  sample.Run(Item("客户", "FWidth=80.123456789,FHeight=6.70194003527337"));
  const CheckResult result = sample.Check({21, kOrder});
  const Finding found = TheFirst(result, kItemMillimetres);
  EXPECT_EQ(TextOf(found, Language::kEnglish).mend, "Lengths are twips: 6.7 mm are 380.");
}

TEST_F(CheckerFindings, OneRemarkIsToldAsOne) {
  const Finding found = FirstInSample(kMarkerRows,
                                      "select 1 as FInterID,2 as FMainQty,3 as FAmount,4 as FQty "
                                      "union all select 1,-999.99,null,null");
  EXPECT_EQ(TextOf(found, Language::kEnglish).wrong, "1 row has FMainQty −999.99.");
}

// The findings of one kind, and no others.
std::vector<Finding> OfKind(const CheckResult& result, FindingKind kind) {
  std::vector<Finding> found;
  std::ranges::copy_if(result.findings, std::back_inserter(found),
                       [kind](const Finding& finding) { return finding.kind == kind; });
  return found;
}

TEST_F(CheckerFindings, OneRowAPageIsRightForRowsOfNoBill) {
  CheckedSample sample;
  sample.Run(Bill("FRowsPerPage=1"));
  EXPECT_TRUE(OfKind(sample.Check({21, kOrder}, kWaybills), kRowsOne).empty());
  EXPECT_TRUE(OfKind(sample.Check({21, kOrder}, kWaybills), kRowsNowhere).empty());
  const std::vector<Finding> found = OfKind(sample.Check({21, kOrder}), kRowsOne);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].sql, "");
}

TEST_F(CheckerFindings, RowsThatNoPageShowsAreCounted) {
  CheckedSample sample;
  sample.Run(Bill("FRowsPerPage=2") + "delete from TDBillDetail where FTDBillID=2101 and FSite>1");
  const std::vector<Finding> found = OfKind(sample.Check({21, kOrder}, kWaybills), kRowsNowhere);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].arguments, (std::vector<std::string>{"1", "3", "2"}));
  // The head of a bill stands for all of its rows.
  EXPECT_TRUE(OfKind(sample.Check({21, kOrder}, kOrderRows), kRowsNowhere).empty());
}

TEST_F(CheckerFindings, ColumnsOfTheRowsAreWhatMayBeMeant) {
  CheckedSample sample;
  sample.Run(
      "update TDVariant set FVarName='FGoodsNam' where FVarCaption='商品名称';"
      "update TDVariant set FVarName='FBiller' where FVarCaption='客户'");
  const CheckResult result = sample.Check(
      {21, kOrder}, "select 1 as FInterID,0 as FMainQty,'米' as FGoodsName,'A' as FBillNo");
  std::string told;
  for (const Finding& finding : OfKind(result, kColumnMissing)) {
    if (finding.item->caption == "商品名称" || finding.item->caption == "客户") {
      told += finding.arguments[0] + ">" + finding.arguments[1] + (finding.sql.empty() ? "" : "!");
    }
  }
  EXPECT_EQ(told, "FBiller>FGoodsNam>FGoodsName!");
}

TEST_F(CheckerFindings, AVariableThatResemblesNoneIsRegistered) {
  CheckedSample sample;
  sample.Run(Item("客户", "FObjectFieldName='FCustNam'") +
             Item("单据编号", "FObjectFieldName='送货路线'"));
  std::string told;
  for (const Finding& finding : OfKind(sample.Check({21, kOrder}, kOrderRows), kVariableUnknown)) {
    told += finding.sql + "\n";
  }
  EXPECT_EQ(told,
            "insert into TDVariant (FTranType,FVarCaption,FVarName) values "
            "(21,'FCustNam','FCustName')\n"
            "insert into TDVariant (FTranType,FVarCaption,FVarName) values "
            "(21,'送货路线','FColumn')\n");
}

TEST_F(CheckerFindings, ABlankInAColumnsNameIsOneFinding) {
  CheckedSample sample;
  sample.Run("update TDVariant set FVarName='FCustName ' where FVarCaption='客户'");
  const CheckResult result = sample.Check({21, kOrder}, kOrderRows);
  EXPECT_TRUE(OfKind(result, kColumnMissing).empty()) << Listed(result);
  const std::vector<Finding> found = OfKind(result, kColumnBlanks);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_NE(found[0].sql.find("FVarName='FCustName' where"), std::string::npos);
}

TEST_F(CheckerFindings, ANullLeavesTheBoxEmptyWhereTheCaptionIsNotPrinted) {
  CheckedSample sample;
  sample.Run(Item("规格型号", "FObjectCaption='规格型号'"));
  const std::vector<Finding> found =
      OfKind(sample.Check({21, kOrder}, RowsWith("null as FModel")), kValueAlwaysNull);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(TextOf(found[0], Language::kEnglish).effect, "The box is empty.");
  sample.Run(Item("规格型号", "FObjectCaption='规格：'"));
  const std::vector<Finding> labelled =
      OfKind(sample.Check({21, kOrder}, RowsWith("null as FModel")), kValueAlwaysNull);
  ASSERT_EQ(labelled.size(), 1U);
  EXPECT_EQ(TextOf(labelled[0], Language::kEnglish).effect, "Only the caption is printed.");
}

TEST_F(CheckerFindings, ABarcodeOverATextIsFound) {
  CheckedSample sample;
  EXPECT_TRUE(OfKind(sample.Check({21, kCatalogue}, kOrderRows), kTextsOverlap).empty());
  const std::string code =
      " from TDBillDetail where FTDBillID=2103 and FObjectFieldName='<单号条码图>')";
  sample.Run("update TDBillDetail set FLeft=(select FLeft" + code + ",FTop=(select FTop" + code +
             " where FTDBillID=2103 and FObjectFieldName='客户'");
  const std::vector<Finding> found =
      OfKind(sample.Check({21, kCatalogue}, kOrderRows), kTextsOverlap);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_NE(TextOf(found[0], Language::kEnglish).mend.find("the code's box"), std::string::npos);
}

TEST_F(CheckerFindings, BandsThatLaterPagesMoveAreTheCauseOfOverlaps) {
  CheckedSample sample;
  sample.Run(Bill("FAdjuctHeader=-1000,FHeaderPerPage=1"));
  const std::vector<Finding> found = OfKind(
      sample.Check({21, kOrder},
                   "select * from v_sales_order where FInterID in (21002,21007) order by FInterID"),
      kTextsOverlap);
  ASSERT_FALSE(found.empty());
  EXPECT_EQ(TextOf(found[0], Language::kEnglish).mend,
            "FAdjuctHeader moves the bands below the head by -17.6 mm on all pages but the first: "
            "correct it, or print one bill at a time.");
}

TEST_F(CheckerFindings, TheLongestValueIsTold) {
  CheckedSample sample;
  sample.Run(Item("商品名称", "FWidth=700"));
  const CheckResult result =
      sample.Check({21, kOrder},
                   "select 1 as FInterID,0 as FMainQty,'米' as FItemName union all "
                   "select 1,0,'一种名称特别长的大米' union all select 1,0,'长一点的大米'");
  const Finding found = TheFirst(result, kTextTooLong);
  EXPECT_EQ(found.arguments[0], "一种名称特别长的大米");
}

TEST_F(CheckerFindings, AValueThatOnlySomeRowsLackIsCounted) {
  const Finding found =
      FirstInSample(kValueNull,
                    "select 7 as FInterID,'XD-7' as FBillNo,0 as FMainQty,'米' as FItemName union "
                    "all select 7,'XD-7',0,null union all select 7,'XD-7',0,'油'");
  EXPECT_EQ(found.arguments, (std::vector<std::string>{"FItemName", "1", "3", "XD-7", "2", ""}));
}

TEST_F(CheckerFindings, TheColumnsThatASumIsMadeOfAreTold) {
  const CheckedSample sample;
  const CheckResult result = sample.Check({21, kOrder}, "select 1 as FInterID, 2 as FMainQty");
  const auto found = std::ranges::find_if(result.findings, [](const Finding& finding) {
    return finding.kind == kSumColumnMissing && finding.item->caption == "本页金额";
  });
  ASSERT_NE(found, result.findings.end()) << Listed(result);
  EXPECT_EQ(found->arguments, (std::vector<std::string>{"ftotalpage", "FAmount", "0.00"}));
}

TEST_F(CheckerFindings, FindingsStandInTheOrderOfBandsAndItems) {
  CheckedSample sample;
  sample.Run(Item("金额", "FFontSize=0") + Item("客户", "FLeft=30000,FFontSize=0") +
             Bill("FRowsPerPage=1"));
  std::vector<std::string> bands;
  for (const Finding& finding : sample.Check({21, kOrder}).findings) {
    bands.push_back(finding.item ? finding.item->band : "");
  }
  EXPECT_TRUE(std::ranges::is_sorted(bands));
  EXPECT_EQ(bands.front(), "");
}

TEST_F(CheckerFindings, AFormatByItselfAsksForNoSelectedOne) {
  CheckedSample sample;
  sample.Run(Bill("FSelected=1", 2102));
  EXPECT_EQ(Listed(sample.Check({21, kOrder})), "");
}

TEST_F(CheckerFindings, OtherMachinesPrintersAreNotKnownHere) {
  CheckedSample sample;
  sample.Run("insert into TDBill_PaperSize values ('192.0.2.8','销售订单三联',9,1,1,0,'Gone')");
  EXPECT_EQ(Listed(sample.Check()), "");
}

TEST_F(CheckerFindings, TheDatabaseStaysAsItIs) {
  CheckedSample sample;
  const auto before = std::filesystem::last_write_time(sample.File());
  (void)sample.Check({21, {}}, kOrderRows);
  EXPECT_EQ(std::filesystem::last_write_time(sample.File()), before);
}

// Says of the first requests that the database is locked.
class LockedAtFirst : public Database {
 public:
  explicit LockedAtFirst(Database& real) : real_(real) {}
  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql, CursorType cursor,
                         LockType lock) override {
    if (refusals < 5 && ++refusals > 0) throw Failure(kDatabaseFailed, "数据库已锁定");
    return real_.OpenQuery(connection, sql, cursor, lock);
  }
  std::unique_ptr<Connection> Connect(const std::string& connection) override {
    return real_.Connect(connection);
  }

  int refusals = 0;

 private:
  Database& real_;
};

TEST_F(CheckerFindings, ALockIsWaitedFor) {
  const CheckedSample sample;
  LockedAtFirst database(Desktop().Get().database);
  const FakeMachine machine(Desktop().Get().pictures);
  const CheckResult result = CheckDatabase(database, sample.Connection(), {}, machine);
  EXPECT_EQ(database.refusals, 5);
  EXPECT_EQ(result.formats, 9);
}

TEST_F(CheckerFindings, ADatabaseWithoutTheTablesFails) {
  CheckedSample sample;
  sample.Run("drop table TDBillDetail");
  EXPECT_THROW((void)sample.Check(), Failure);
}

TEST_F(CheckerFindings, AreaPrintersMayBeMissingAltogether) {
  CheckedSample sample;
  sample.Run("drop table TDBill_AreaPrinterDevice");
  EXPECT_EQ(Listed(sample.Check()), "");
}

}  // namespace
}  // namespace td::checker
