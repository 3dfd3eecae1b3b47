// Every statement that the component sends, byte for byte, runs and delivers what it asks for.
#include <gtest/gtest.h>

#include "platform/failure.h"
#include "sqlite/sqlite_database.h"
#include "temporary_database.h"

namespace td {
namespace {

constexpr const char* kTables = R"(
create table TDBill (
  FTDBillID integer primary key, FTranType integer, FTDBillName text, FSelected integer,
  FPaperSize integer, FPaperWidth real, FPaperHeight real, FOrientation integer,
  FRowsPerPage real, FRowHeight real, FAdjuctLeft real, FAdjuctTop real, FAdjuctHeader real,
  FQtysPerRow real, FHeaderPerPage integer, FFooterPerPage integer, FIntegralPage integer,
  FPrintDevice text, FMarginLeft real, FMarginTop real, FMarginRight real, FMarginBottom real);
create table TDBillDetail (
  FTDBillID integer, FSite integer, FLeft real, FTop real, FTypeID integer, FIsVariant integer,
  FMustPrint integer, FObjectFieldName text, FObjectCaption text);
create table TDVariant (FTranType integer, FVarCaption text, FVarName text);
create table TDBill_PaperSize (
  FIP text, FTDBillName text, FPaperSize integer, FPaperWidth real, FPaperHeight real,
  FOrientation integer, FDevice text);
create table TDBill_AreaPrinterDevice (
  FIp text, FTranType integer, FTdBillName text, FStockArea text, FPrintDevice text);
create table t_SystemProfile (FKey text, FValue text);
create table t_icitem (FItemID integer primary key, FStockArea text);
create table t_icitem_Picture (FItemID integer primary key, FPicture blob, FPicPath text);
insert into TDBill(FTDBillID,FTranType,FTDBillName,FSelected) values
  (1,21,'销售订货单',0),(2,21,'三联单',1),(3,22,'销售订货单',1);
insert into TDBillDetail values
  (2,3,100,0,0,1,0,'单号','No.'), (2,3,-1,0,0,1,0,'单号','hidden'), (2,3,200,0,1,0,1,null,'line'),
  (2,3,300,0,0,0,0,'没有','label'), (2,1,-5,-5,0,1,0,'单号','head'), (3,3,1,1,0,1,0,'单号','other');
insert into TDVariant values (21,'单号','FBillNo'),(22,'单号','FOther');
insert into t_SystemProfile values ('MustShowComplexQty','1'),('PrintAdvertising','no');
insert into t_icitem(FStockArea) values ('B'),('A2'),(null),('A1'),('B'),('仓库');
insert into t_icitem_Picture values (7,x'FFD8FF',null);
)";

class Catalogue : public testing::Test {
 protected:
  // The values of a column, each followed by a comma but the last.
  std::string Column(const std::string& sql, std::string_view column) {
    std::string result;
    const RecordsetRef rows = database_.OpenQuery(connection_, sql);
    for (; !rows->Eof(); rows->MoveNext()) {
      const Value& value = rows->Field(column);
      if (const auto* text = std::get_if<std::string>(&value)) result += *text;
      if (const auto* whole = std::get_if<std::int64_t>(&value)) result += std::to_string(*whole);
      if (const auto* real = std::get_if<double>(&value)) result += std::to_string(*real);
      if (IsNull(value)) result += "Null";
      result += ',';
    }
    if (!result.empty()) result.pop_back();
    return result;
  }

  void Execute(const std::string& sql) { database_.Connect(connection_)->Execute(sql); }

  TemporaryFolder folder_;
  std::string connection_ = MakeDatabase(folder_.File("账套.db"), kTables);
  SqliteDatabase database_;
};

std::string ItemQuery(const std::string& end) {
  return "select t2.*,t3.FVarName as FFieldName from ((select FTDBillID from TDBill where "
         "FtranType=21 and FTDBillName='三联单') t1 Inner Join TDBillDetail t2 ON "
         "t1.FTDBillID=t2.FTDBillID) Left Join (select * from TDVariant where FTranType=21) t3 ON "
         "t2.FObjectFieldName=t3.FVarCaption  where " +
         end;
}

TEST_F(Catalogue, TemplateRowByNameAndBySelection) {
  EXPECT_EQ(Column("select * from TDBill where FSelected=1 and FTranType=21", "FTdBillName"),
            "三联单");
  EXPECT_EQ(
      Column("select * from TDBill where FTDBillName='销售订货单'  and FTranType=22", "FTDBillID"),
      "3");
}

TEST_F(Catalogue, ItemQueryOfARowBand) {
  const std::string sql = ItemQuery("t2.FTop>=0 and t2.FLeft>=0 and t2.FSite=3");
  EXPECT_EQ(Column(sql, "FObjectCaption"), "No.,line,label");
  EXPECT_EQ(Column(sql, "FFieldName"), "FBillNo,Null,Null");
  EXPECT_EQ(Column(sql, "FTDBillID"), "2,2,2");
}

TEST_F(Catalogue, ItemQueryWithAFilterOrOnlyVariantItems) {
  EXPECT_EQ(Column(ItemQuery("t2.FTop>=0 and t2.FLeft>=0 and t2.FSite=3 and t2.FTypeID=1"),
                   "FObjectCaption"),
            "line");
  EXPECT_EQ(Column(ItemQuery("t2.FTop>=0 and t2.FLeft>=0 and t2.FSite=3 and (FIsVariant=1 or "
                             "FMustPrint=1)"),
                   "FObjectCaption"),
            "No.,line");
}

TEST_F(Catalogue, HeaderItemQuery) {
  EXPECT_EQ(Column(ItemQuery("t2.FSite=1 and (FIsVariant=1 or FMustPrint=1) "), "FObjectCaption"),
            "head");
}

TEST_F(Catalogue, Settings) {
  EXPECT_EQ(Column("select FValue from t_SystemProfile where FKey='MustShowComplexQty'", "FValue"),
            "1");
  EXPECT_EQ(Column("Select Fvalue from t_systemprofile where fkey='PrintAdvertising'", "FValue"),
            "no");
}

TEST_F(Catalogue, GoodsPicture) {
  const RecordsetRef rows = database_.OpenQuery(
      connection_, "select FItemID,FPicture,FPicPath from t_icitem_Picture where FItemID=7",
      CursorType::kKeyset, LockType::kPessimistic);
  const Bytes expected = {std::byte{0xFF}, std::byte{0xD8}, std::byte{0xFF}};
  EXPECT_EQ(rows->Field("FPicture"), Value(expected));
}

TEST_F(Catalogue, PaperOfAFormatAndOfAMachine) {
  Execute(
      "Update TDBill set FMarginleft=0,FMarginTop=0,FMarginRight=1.5,FMarginBottom=1E-05,"
      "FOrientation=0,FPaperSize=256,FPaperWidth=13663,FPaperHeight=7937.5 where "
      "FTDBillName='三联单' and FTranType=21");
  EXPECT_EQ(Column("select * from TDBill where FSelected=1 and FTranType=21", "FPaperHeight"),
            "7937.500000");
  for (const char* device : {"P1", "P2"}) {
    Execute("delete from TDBill_PaperSize where FIP='10.0.0.1' and FTDBillName='三联单'");
    Execute(
        "insert into TDBill_PaperSize(FIP,FTDBillName,FPaperSize,FPaperWidth,FPaperHeight,"
        "FOrientation,FDevice) values('10.0.0.1','三联单',256,13663,7937.5,0,'" +
        std::string(device) + "')");
  }
  EXPECT_EQ(Column("select * from TDBill_PaperSize where FIP='10.0.0.1' and FTDBillName='三联单'",
                   "FDevice"),
            "P2");
}

TEST_F(Catalogue, OverlaySettings) {
  EXPECT_EQ(
      Column("select * from TDBill where FTranType=21 order by FSelected desc", "FTDBillName"),
      "三联单,销售订货单");
  Execute("Update TDBill set FSelected=0 where FTranType=21");
  EXPECT_EQ(Column("select * from TDBill where FSelected=1 and FTranType=21", "FTDBillName"), "");
  Execute(
      "Update TDBill set FAdjuctLeft=10,FAdjuctTop=-20.5,FAdjuctHeader=0,FRowHeight=350,"
      "FRowsPerPage=12,FQtysPerRow=0,FOrientation=1,FSelected=1,FHeaderPerPage=1,FFooterPerPage=0,"
      "FIntegralPage=1,FPrintDevice='针式'  where FTDBillName='销售订货单' and FTranType=21");
  EXPECT_EQ(Column("select * from TDBill where FTranType=21 and FTDBillName='销售订货单' order by "
                   "FSelected desc",
                   "FPrintDevice"),
            "针式");
}

TEST_F(Catalogue, FormatNamesAndStockAreas) {
  EXPECT_EQ(Column("select FTDBillName from TDBill where ftrantype=22", "FTDBillName"),
            "销售订货单");
  EXPECT_EQ(Column("select left(isnull(FStockArea,''),1) as FStockArea from t_icitem group by "
                   "FStockArea order by FStockArea",
                   "FStockArea"),
            ",A,A,B,仓");
}

TEST_F(Catalogue, AreaPrinters) {
  for (const char* printer : {"P1", "P2"}) {
    Execute(
        "delete from TDBill_AreaPrinterDevice where FIp='10.0.0.1' and FTranType=21 and "
        "FTdBillName='三联单' and FStockArea='A'");
    Execute(
        "Insert Into TDBill_AreaPrinterDevice(FPrintDevice,FIp,FTranType,FTdBillName,FStockArea) "
        "Values('" +
        std::string(printer) + "','10.0.0.1',21,'三联单','A')");
  }
  EXPECT_EQ(Column("select FPrintDevice from TDBill_AreaPrinterDevice where ftrantype=21 and "
                   "FIP='10.0.0.1' and FTDBillName='三联单' and FStockArea='A'",
                   "FPrintDevice"),
            "P2");
}

TEST_F(Catalogue, AQuoteInANameBreaksTheStatement) {
  EXPECT_THROW(
      Column("select * from TDBill where FTDBillName='a'b'  and FTranType=21", "FTranType"),
      Failure);
}

}  // namespace
}  // namespace td
