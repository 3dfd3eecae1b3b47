// The statements that the component sends, byte for byte, on each engine.
#include <initializer_list>

#include "odbc_fixture.h"

namespace td {
namespace {

class OdbcCatalogue : public OnEachServer {
 protected:
  void SetUp() override {
    MakeTable("TDBill",
              "FTDBillID integer primary key, FTranType integer, FTDBillName varchar(50), "
              "FSelected integer, FPaperSize integer, FPaperWidth real, FPaperHeight real, "
              "FOrientation integer, FRowsPerPage integer, FRowHeight double precision, "
              "FAdjuctLeft real, FAdjuctTop real, FAdjuctHeader real, FQtysPerRow real, "
              "FHeaderPerPage integer, FFooterPerPage integer, FIntegralPage integer, "
              "FPrintDevice varchar(100), FMarginLeft real, FMarginTop real, FMarginRight real, "
              "FMarginBottom real");
    MakeTable("TDBillDetail",
              "FTDBillID integer, FSite integer, FLeft real, FTop real, FTypeID integer, "
              "FIsVariant integer, FMustPrint integer, FObjectFieldName varchar(50), "
              "FObjectCaption varchar(50)");
    MakeTable("TDVariant", "FTranType integer, FVarCaption varchar(50), FVarName varchar(50)");
    MakeTable("TDBill_PaperSize",
              "FIP varchar(50), FTDBillName varchar(50), FPaperSize integer, FPaperWidth real, "
              "FPaperHeight real, FOrientation integer, FDevice varchar(100)");
    MakeTable("TDBill_AreaPrinterDevice",
              "FIp varchar(50), FTranType integer, FTdBillName varchar(50), FStockArea varchar(9), "
              "FPrintDevice varchar(100)");
    MakeTable("t_SystemProfile", "FKey varchar(50), FValue varchar(50)");
    MakeTable("t_icitem", "FItemID integer primary key, FStockArea varchar(50)");
    for (const char* sql :
         {"insert into TDBill(FTDBillID,FTranType,FTDBillName,FSelected) values "
          "(1,21,'销售订货单',0),(2,21,'三联单',1),(3,22,'销售订货单',1)",
          "insert into TDBillDetail values (2,3,100,0,0,1,0,'单号','No.'),"
          "(2,3,-1,0,0,1,0,'单号','hidden'),(2,3,200,0,1,0,1,null,'line'),"
          "(2,3,300,0,0,0,0,'没有','label'),(2,1,-5,-5,0,1,0,'单号','head')",
          "insert into TDVariant values (21,'单号','FBillNo'),(22,'单号','FOther')",
          "insert into t_SystemProfile values ('MustShowComplexQty','1'),('PrintAdvertising','no')",
          "insert into t_icitem values (1,'B'),(2,'A2'),(3,null),(4,'A1'),(5,'B')"}) {
      Execute(sql);
    }
  }

  // The texts of a column, each followed by a bar.
  std::string Column(const std::string& sql, std::string_view column) {
    std::string result;
    const RecordsetRef rows = Open(sql);
    for (; !rows->Eof(); rows->MoveNext()) {
      const Value& value = rows->Field(column);
      result += IsNull(value) ? "Null" : std::get<std::string>(value);
      result += '|';
    }
    return result;
  }
};
INSTANTIATE_TEST_SUITE_P(Servers, OdbcCatalogue,
                         testing::Values(Server::kPostgreSql, Server::kMariaDb), NameOfServer);

std::string ItemQuery(const std::string& end) {
  return "select t2.*,t3.FVarName as FFieldName from ((select FTDBillID from TDBill where "
         "FtranType=21 and FTDBillName='三联单') t1 Inner Join TDBillDetail t2 ON "
         "t1.FTDBillID=t2.FTDBillID) Left Join (select * from TDVariant where FTranType=21) t3 ON "
         "t2.FObjectFieldName=t3.FVarCaption  where " +
         end;
}

TEST_P(OdbcCatalogue, Items) {
  const std::string band = ItemQuery("t2.FTop>=0 and t2.FLeft>=0 and t2.FSite=3");
  EXPECT_EQ(Column(band, "FObjectCaption"), "No.|line|label|");
  EXPECT_EQ(Column(band, "FFieldName"), "FBillNo|Null|Null|");
  EXPECT_EQ(Column(band + " and t2.FTypeID=1", "FObjectCaption"), "line|");
  EXPECT_EQ(Column(ItemQuery("t2.FSite=1 and (FIsVariant=1 or FMustPrint=1) "), "FObjectCaption"),
            "head|");
}

TEST_P(OdbcCatalogue, SettingsAndFormats) {
  EXPECT_EQ(Column("select FValue from t_SystemProfile where FKey='MustShowComplexQty'", "FValue"),
            "1|");
  EXPECT_EQ(Column("Select Fvalue from t_systemprofile where fkey='PrintAdvertising'", "FValue"),
            "no|");
  EXPECT_EQ(Column("select FTDBillName from TDBill where ftrantype=22", "FTDBillName"),
            "销售订货单|");
  EXPECT_EQ(
      Column("select * from TDBill where FTranType=21 order by FSelected desc", "FTDBillName"),
      "三联单|销售订货单|");
  EXPECT_EQ(
      Column("select * from TDBill where FTDBillName='三联单'  and FTranType=21", "FTDBillName"),
      "三联单|");
}

TEST_P(OdbcCatalogue, StockAreas) {
  EXPECT_EQ(Column("select left(isnull(FStockArea,''),1) as FStockArea from t_icitem group by "
                   "FStockArea order by FStockArea",
                   "FStockArea"),
            "|A|A|B|");
}

TEST_P(OdbcCatalogue, Writes) {
  for (const char* sql :
       {"Update TDBill set FMarginleft=0,FMarginTop=0,FMarginRight=1.5,FMarginBottom=1E-05,"
        "FOrientation=0,FPaperSize=256,FPaperWidth=13663,FPaperHeight=7937.5 where "
        "FTDBillName='三联单' and FTranType=21",
        "delete from TDBill_PaperSize where FIP='10.0.0.1' and FTDBillName='三联单'",
        "insert into TDBill_PaperSize(FIP,FTDBillName,FPaperSize,FPaperWidth,FPaperHeight,"
        "FOrientation,FDevice) values('10.0.0.1','三联单',256,13663,7937.5,0,'P1')",
        "Update TDBill set FSelected=0 where FTranType=21",
        "Update TDBill set FAdjuctLeft=10,FAdjuctTop=-20.5,FAdjuctHeader=0,FRowHeight=350,"
        "FRowsPerPage=12,FQtysPerRow=0,FOrientation=1,FSelected=1,FHeaderPerPage=1,"
        "FFooterPerPage=0,FIntegralPage=1,FPrintDevice='针式\\1'  where FTDBillName='三联单' and "
        "FTranType=21",
        "delete from TDBill_AreaPrinterDevice where FIp='10.0.0.1' and FTranType=21 and "
        "FTdBillName='三联单' and FStockArea='A'",
        "Insert Into TDBill_AreaPrinterDevice(FPrintDevice,FIp,FTranType,FTdBillName,FStockArea) "
        "Values('P2','10.0.0.1',21,'三联单','A')"}) {
    Execute(sql);
  }
  EXPECT_EQ(Column("select * from TDBill where FSelected=1 and FTranType=21", "FPrintDevice"),
            "针式\\1|");
  EXPECT_EQ(Open("select * from TDBill where FSelected=1 and FTranType=21")->Field("FPaperHeight"),
            Value(7937.5));
  EXPECT_EQ(Column("select * from TDBill_PaperSize where FIP='10.0.0.1' and FTDBillName='三联单'",
                   "FDevice"),
            "P1|");
  EXPECT_EQ(Column("select FPrintDevice from TDBill_AreaPrinterDevice where ftrantype=21 and "
                   "FIP='10.0.0.1' and FTDBillName='三联单' and FStockArea='A'",
                   "FPrintDevice"),
            "P2|");
}

}  // namespace
}  // namespace td
