#include "sqlite/sql_dialect.h"

#include <gtest/gtest.h>

namespace td {
namespace {

TEST(SqliteDialect, LetsTheFunctionsIsnullAndLeftBeCalled) {
  EXPECT_EQ(ToSqliteDialect("select left(isnull(FStockArea,''),1) as FStockArea from t_icitem"),
            "select \"left\"(\"isnull\"(FStockArea,''),1) as FStockArea from t_icitem");
  EXPECT_EQ(ToSqliteDialect("SELECT ISNULL \n(a,1),Left/*x*/(b,2)--c\n"),
            "SELECT \"ISNULL\" \n(a,1),\"Left\"/*x*/(b,2)--c\n");
}

TEST(SqliteDialect, LeavesTheKeywordsAlone) {
  const char* sql = "select a isnull from t1 Left Join t2 on (b isnull) left outer join t3";
  EXPECT_EQ(ToSqliteDialect(sql), sql);
}

TEST(SqliteDialect, LeavesOtherNamesAlone) {
  const char* sql = "select myleft(a,1),left_(a),isnullx(b),左left(c),:left(1),1left(2) from leftt";
  EXPECT_EQ(ToSqliteDialect(sql), sql);
}

TEST(SqliteDialect, NeverTouchesTextsQuotedNamesAndComments) {
  for (const char* sql :
       {"select 'left(a,1)','it''s isnull(x,1)' from t", "select \"left(\" from \"a\"\"isnull(b\"",
        "select [left(a] from t", "select `isnull(``` from t", "select 1 -- left(a,1)\n, 2",
        "select /* isnull(a,1) */ 1", "select 'open left(a,1)", "select /* open left(a",
        "select -- left("}) {
    EXPECT_EQ(ToSqliteDialect(sql), sql);
  }
}

TEST(SqliteDialect, GoesOnBehindTextsAndComments) {
  EXPECT_EQ(ToSqliteDialect("select '--',left(a,1),\"'\",left(b,1) /*'*/ ,left(c,1)"),
            "select '--',\"left\"(a,1),\"'\",\"left\"(b,1) /*'*/ ,\"left\"(c,1)");
}

}  // namespace
}  // namespace td
