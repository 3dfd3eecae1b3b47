// The in-memory database of a replay has to refuse and to find what a real one does.
#include "recording/memory_tables.h"

#include <gtest/gtest.h>

#include "platform/failure.h"

namespace td::recording {
namespace {

MemoryTables Sample() {
  return MemoryTables({
      {"TDBill",
       {{"FTDBillID", "FTranType", "FTDBillName", "FSelected", "FPrintDevice"},
        {{std::int64_t{1}, std::int64_t{21}, "甲", std::int64_t{0}, Null{}},
         {std::int64_t{2}, "21", "乙", std::int64_t{1}, "P1"},
         {std::int64_t{3}, std::int64_t{12}, "丙", std::int64_t{1}, "P2"}}}},
      {"TDBillDetail",
       {{"FTDBillID", "FSite", "FObjectFieldName"},
        {{std::int64_t{2}, std::int64_t{3}, "数量"},
         {std::int64_t{2}, std::int64_t{3}, Null{}},
         {std::int64_t{1}, std::int64_t{3}, "数量"}}}},
      {"TDVariant",
       {{"FTranType", "FVarCaption", "FVarName"},
        {{std::int64_t{21}, "数量", "FQty"}, {std::int64_t{21}, Null{}, "FNothing"}}}},
      {"t_icitem", {{"FStockArea"}, {{"B1"}, {"A2"}, {Null{}}, {"A1"}, {"B1"}, {"库1"}}}},
  });
}

Json Rows(const TableData& table) {
  Json rows = Json::array();
  for (const Row& row : table.rows) {
    Json values = Json::array();
    for (const Value& value : row) {
      values.push_back(ToJson(value));
    }
    rows.push_back(values);
  }
  return rows;
}

Json Query(const std::string& sql) {
  return Rows(Sample().Query(sql));
}

std::string RefusalOf(const std::string& sql) {
  MemoryTables tables = Sample();
  const Json before = tables.AsJson();
  try {
    tables.Execute(sql);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kDatabaseFailed);
    EXPECT_EQ(tables.AsJson(), before) << sql;
    return failure.Description();
  }
  ADD_FAILURE() << "not refused: " << sql;
  return "";
}

TEST(MemoryTables, FindTablesAndColumnsInAnyCase) {
  EXPECT_EQ(Query("SELECT ftdbillname FROM tdbill WHERE ftrantype=12"),
            Json::array({Json::array({"丙"})}));
}

TEST(MemoryTables, CompareANumberWithTheTextThatSpellsIt) {
  EXPECT_EQ(Query("select FTDBillName from TDBill where FTranType=21"),
            Json::parse(R"([["甲"],["乙"]])"));
  EXPECT_EQ(Query("select FTDBillName from TDBill where FTranType='21'"),
            Json::parse(R"([["甲"],["乙"]])"));
  EXPECT_EQ(Query("select FTDBillName from TDBill where FTDBillName=21"), Json::array());
}

TEST(MemoryTables, ConvertNoStoredValueForAComparison) {
  MemoryTables tables({{"T", {{"FTop"}, {{"0100"}, {"100"}, {"-100"}, {"abc"}, {Bytes{}}}}}});
  EXPECT_EQ(Rows(tables.Query("select FTop from T where FTop=100")),
            Json::parse(R"([["0100"],["100"]])"));
  EXPECT_EQ(Rows(tables.Query("select FTop from T where FTop='100'")), Json::parse(R"([["100"]])"));
  // What spells no number is neither above nor below one.
  EXPECT_EQ(Rows(tables.Query("select FTop from T where FTop>=0")),
            Json::parse(R"([["0100"],["100"]])"));
  EXPECT_EQ(Rows(tables.Query("select FTop from T where FTop<=0")), Json::parse(R"([["-100"]])"));
}

TEST(MemoryTables, CompareTextsExactly) {
  EXPECT_EQ(Query("select FTDBillID from TDBill where FPrintDevice='p1'"), Json::array());
}

TEST(MemoryTables, FindNullEqualToNothing) {
  EXPECT_EQ(Query("select FTDBillID from TDBill where FPrintDevice=FPrintDevice"),
            Json::parse("[[2],[3]]"));
  EXPECT_EQ(Query("select FTDBillID from TDBill where FPrintDevice<>'P1'"), Json::parse("[[3]]"));
}

TEST(MemoryTables, BindAndCloserThanOr) {
  EXPECT_EQ(Query("select FTDBillID from TDBill where FTDBillID=1 or FTDBillID=2 and FSelected=0"),
            Json::parse("[[1]]"));
  EXPECT_EQ(
      Query("select FTDBillID from TDBill where (FTDBillID=1 or FTDBillID=2) and FSelected=1"),
      Json::parse("[[2]]"));
}

TEST(MemoryTables, KnowEveryComparison) {
  EXPECT_EQ(Query("select FTDBillID from TDBill where FTDBillID>1"), Json::parse("[[2],[3]]"));
  EXPECT_EQ(Query("select FTDBillID from TDBill where FTDBillID>=3"), Json::parse("[[3]]"));
  EXPECT_EQ(Query("select FTDBillID from TDBill where FTDBillID<2"), Json::parse("[[1]]"));
  EXPECT_EQ(Query("select FTDBillID from TDBill where FTDBillID<=-1.5E+1"), Json::array());
  EXPECT_EQ(Query("select FTDBillID from TDBill where FTDBillID<>2"), Json::parse("[[1],[3]]"));
}

TEST(MemoryTables, KeepTheStoredOrderAmongEqualKeys) {
  EXPECT_EQ(Query("select FTDBillID from TDBill order by FSelected desc"),
            Json::parse("[[2],[3],[1]]"));
}

TEST(MemoryTables, JoinDerivedTables) {
  EXPECT_EQ(
      Query("select t2.*,t3.FVarName as FFieldName from ((select FTDBillID from TDBill where "
            "FtranType=21 and FTDBillName='乙') t1 Inner Join TDBillDetail t2 ON "
            "t1.FTDBillID=t2.FTDBillID) Left Join (select * from TDVariant where FTranType=21) "
            "t3 ON t2.FObjectFieldName=t3.FVarCaption  where t2.FSite=3"),
      Json::parse(R"([[2,3,"数量","FQty"],[2,3,null,null]])"));
}

TEST(MemoryTables, KeepTheStoredOrderOfAJoinWhicheverTableHasTheCondition) {
  EXPECT_EQ(Query("select t1.FTDBillID,t2.FObjectFieldName from TDBill t1 Inner Join TDBillDetail "
                  "t2 ON t1.FTDBillID=t2.FTDBillID where t2.FSite=3"),
            Json::parse(R"([[1,"数量"],[2,"数量"],[2,null]])"));
}

TEST(MemoryTables, GiveTheColumnsOfAStarInTheirOrder) {
  EXPECT_EQ(Sample().Query("select * from TDBillDetail").columns,
            (std::vector<std::string>{"FTDBillID", "FSite", "FObjectFieldName"}));
}

TEST(MemoryTables, GroupByTheWholeValueAndOrderByTheNewOne) {
  EXPECT_EQ(Query("select left(isnull(FStockArea,''),1) as FStockArea from t_icitem group by "
                  "FStockArea order by FStockArea"),
            Json::parse(R"([[""],["A"],["A"],["B"],["库"]])"));
}

TEST(MemoryTables, ChangeOnlyTheRowsMeant) {
  MemoryTables tables = Sample();
  tables.Execute("Update TDBill set FSelected=0,FPrintDevice='' where FTranType=21");
  EXPECT_EQ(Rows(tables.Query("select FSelected,FPrintDevice from TDBill")),
            Json::parse(R"([[0,""],[0,""],[1,"P2"]])"));
  tables.Execute("delete from TDBill where FTDBillName='乙'");
  EXPECT_EQ(Rows(tables.Query("select FTDBillID from TDBill")), Json::parse("[[1],[3]]"));
}

TEST(MemoryTables, LeaveColumnsThatAnInsertDoesNotNameNull) {
  MemoryTables tables = Sample();
  tables.Execute("insert into TDBill(FTDBillName,FTDBillID) values('丁',-0.5)");
  EXPECT_EQ(Rows(tables.Query("select * from TDBill where FTDBillName='丁'")),
            Json::parse(R"([[-0.5,null,"丁",null,null]])"));
}

TEST(MemoryTables, TakeADoubledQuoteAsOne) {
  MemoryTables tables = Sample();
  tables.Execute("insert into TDBill(FTDBillName) values('it''s')");
  EXPECT_EQ(Rows(tables.Query("select FTDBillName from TDBill where FTDBillName='it''s'")),
            Json::parse(R"([["it's"]])"));
}

TEST(MemoryTables, RefuseAStatementAsADatabaseDoes) {
  for (const char* sql : {
           "",
           "drop table TDBill",
           "select",
           "select * from",
           "select * from nothing",
           "select FNothing from TDBill",
           "select * from TDBill where FNothing=1",
           "select t9.* from TDBill",
           "select * from TDBill where FTDBillName='甲'x'",
           "select * from TDBill where FTDBillName='甲' extra",
           "select * from TDBill; delete from TDBill",
           "select * from TDBill where FTDBillName='甲';--'",
           "select * from TDBill where FTDBillName='甲' /*'",
           "select * from TDBill where FTDBillName='甲'||''",
           "select * from TDBill where FTDBillID=",
           "select * from TDBill where FTDBillID=1 and",
           "select * from TDBill where FTDBillID",
           "select * from TDBill where (FTDBillID=1",
           "select * from TDBill where FTDBillID=--1",
           "select * from TDBill where FTDBillID=1x",
           "select * from TDBill order by FNothing",
           "select FSelected from TDBill group by FTranType",
           "select upper(FTDBillName) from TDBill",
           "select left(FTDBillName,'x') from TDBill",
           "select FTDBillID from TDBill t1 Inner Join TDBillDetail t2 ON "
           "t1.FTDBillID=t2.FTDBillID",
           "select * from (select * from TDBill)",
           "update TDBill set FNothing=1",
           "update TDBill set FSelected=1 where FNothing=1",
           "update TDBill set FSelected=FNothing",
           "update TDBill set FSelected=1,",
           "update nothing set FSelected=1",
           "insert into TDBill(FTDBillID) values(1,2)",
           "insert into TDBill(FNothing) values(1)",
           "insert into TDBill(FTDBillID) values(FSelected)",
           "insert into TDBill(FTDBillID) values(1",
           "delete from nothing",
           "delete from TDBill where FNothing=1",
           "delete TDBill",
           "delete from TDBill where FTDBillID=1 or left('x',FTDBillName)='x'",
       }) {
    EXPECT_NE(RefusalOf(sql), "");
  }
}

TEST(MemoryTables, RefuseAnEndlesslyNestedStatement) {
  EXPECT_NE(RefusalOf("select * from TDBill where " + std::string(100000, '(')), "");
  EXPECT_NE(RefusalOf("select * from " + std::string(100000, '(')), "");
}

TEST(MemoryTables, NeverQuoteTheStatementInARefusal) {
  // Whoever reads the description takes this character for a lock conflict.
  EXPECT_EQ(RefusalOf("select * from 锁").find("锁"), std::string::npos);
  EXPECT_EQ(RefusalOf("select 锁 from TDBill").find("锁"), std::string::npos);
  EXPECT_EQ(RefusalOf("select * from TDBill where FTDBillName='a'锁'").find("锁"),
            std::string::npos);
}

TEST(MemoryTables, AnswerAQueryOnlyWithASelect) {
  EXPECT_THROW((void)Sample().Query("delete from TDBill"), Failure);
}

}  // namespace
}  // namespace td::recording
