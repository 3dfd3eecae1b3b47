// tdprint print --explain, and messages with their place.
#include <gtest/gtest.h>

#include <string>

#include "sample_shop.h"

namespace td {
namespace {

class TdprintExplain : public SampleShop {
 protected:
  // Prints order 21002 with these options.
  [[nodiscard]] ProgramResult Print(const std::string& more,
                                    const std::string& columns = "*") const {
    return Shell(
        "tdprint print --db sqlite:sample.db --type 21 --format 销售订单三联 --data \"select " +
        columns + " from v_sales_order where FInterID=21002 order by FEntryID\" " + more);
  }
  // Adds an item to the format.
  void AddItem(const std::string& columns, const std::string& values) {
    Execute("insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, " + columns +
            ") select FTDBillID, " + values + " from TDBill where FTDBillName='销售订单三联'");
  }
};

bool Has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST_F(TdprintExplain, ASoundPrintHasAShortExplanation) {
  const ProgramResult result = Print("--pdf order.pdf --explain");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "");
  EXPECT_TRUE(
      result.err.starts_with("format 销售订单三联 (bill type 21): pages 1, rows 5, bills 1\n"))
      << result.err;
  EXPECT_FALSE(Has(result.err, "not drawn")) << result.err;
}

TEST_F(TdprintExplain, WithoutTheOptionNothingIsTold) {
  EXPECT_EQ(Print("--pdf order.pdf", "FInterID").err, "");
}

TEST_F(TdprintExplain, TheMistakesOfANewAdministratorAreTold) {
  AddItem("FObjectFieldName, FObjectCaption", "1, 10, 10, 500, 300, '客户 ', '客'");
  AddItem("FObjectFieldName, FObjectCaption", "9, 10, 10, 500, 300, '', '九'");
  AddItem("FObjectFieldName, FObjectCaption", "3, 10, 10, 500, 300, '<条码>', '码'");
  const std::string told =
      Print("--pdf order.pdf --explain", "FInterID, FBillNo, FItemName, FAmount").err;
  for (const char* sentence :
       {"head, 客 at 0.2, 0.2 mm: drawn, but 1 of 1 times: TDVariant has no FVarCaption '客户 ' "
        "for "
        "this bill type, only the label is drawn (first: bill XD-2403-0002, page 1)",
        "detail row, 单价 (variable FPrice) at 151.9, 35.5 mm: not drawn 5 of 5 times: the data "
        "have "
        "no column FPrice (first: bill XD-2403-0002, row 1, page 1)",
        "band 9, 九 at 0.2, 0.2 mm: never drawn: there is no band 9, FSite is 1 to 5",
        "<条码> is no image of this band", "5 of 5 rows: the data have no column FMainQty",
        "sum ftotalpage: no row added anything"}) {
    EXPECT_TRUE(Has(told, sentence)) << sentence << "\n" << told;
  }
}

TEST_F(TdprintExplain, SpeaksTheLanguageOfTheLocale) {
  const std::string told =
      Shell(
          "LC_ALL=zh_CN.UTF-8 tdprint print --db sqlite:sample.db --type 21 --pdf o.pdf --explain "
          "--data 'select 1 as FInterID'")
          .err;
  EXPECT_TRUE(Has(told, "打印数据中没有 FCustName 列")) << told;
}

TEST_F(TdprintExplain, GoesIntoAFileBesideADocumentOnStandardOutput) {
  const ProgramResult text = Print("--pdf - --explain=why.txt");
  EXPECT_TRUE(text.out.starts_with("%PDF"));
  EXPECT_EQ(text.err, "");
  EXPECT_TRUE(ContentOf("why.txt").starts_with("format 销售订单三联"));

  EXPECT_EQ(Print("--explain why.json --pdf order.pdf").status, 0);
  EXPECT_TRUE(ContentOf("why.json").starts_with("{\"isRun\":true,")) << ContentOf("why.json");
  EXPECT_TRUE(Print("--pdf order.pdf --explain=-").out.starts_with("format"));
}

TEST_F(TdprintExplain, AFileThatCannotBeWrittenIsToldAndTheBillIsPrinted) {
  const ProgramResult result = Print("--pdf order.pdf --explain=gone/why.txt");
  EXPECT_EQ(result.status, 3);
  EXPECT_TRUE(result.err.starts_with("tdprint: the explanation wasn't written: gone/why.txt: "))
      << result.err;
  EXPECT_TRUE(ContentOf("order.pdf").starts_with("%PDF"));
}

TEST_F(TdprintExplain, APrintThatFailsIsExplained) {
  AddItem("FTypeID, FPicturePath", "1, 10, 10, 0, 0, 2, '/gone/logo.png'");
  const ProgramResult result = Print("--pdf order.pdf --explain");
  EXPECT_EQ(result.status, 3);
  EXPECT_TRUE(
      Has(result.err, "head, picture at 0.2, 0.2 mm: not drawn 1 of 1 times: a step failed: "))
      << result.err;
}

TEST_F(TdprintExplain, AMessageHasItsPlace) {
  AddItem("FTypeID, FPicturePath", "3, 10, 10, 0, 0, 2, '/gone/logo.png'");
  const std::string told = Print("--pdf order.pdf").err;
  EXPECT_TRUE(
      told.ends_with(" (format 销售订单三联, detail row, bill XD-2403-0002, row 5, page 1)\n"))
      << told;
  const std::string chinese =
      Shell(
          "LC_ALL=zh_CN.UTF-8 tdprint print --db sqlite:sample.db --type 21 --pdf o.pdf --format "
          "销售订单三联 --data \"select * from v_sales_order where FInterID=21001\"")
          .err;
  EXPECT_TRUE(
      chinese.ends_with(" (格式“销售订单三联”，明细行，单据 XD-2403-0001，第 1 行，第 1 页)\n"))
      << chinese;
}

TEST_F(TdprintExplain, AComplaintHasItsPlace) {
  Execute(
      "update TDBillDetail set FObjectFieldName='<单号条码图>' where FSite=1 and "
      "FObjectFieldName='单据编号' and FTDBillID=(select FTDBillID from TDBill where "
      "FTDBillName='销售订单三联')");
  const ProgramResult result = Print("--pdf order.pdf", "FInterID, '' as FBillNo");
  EXPECT_EQ(result.status, 3);
  EXPECT_TRUE(Has(result.err, " (format 销售订单三联, head, ")) << result.err;
}

}  // namespace
}  // namespace td
