#include "work.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "desktop/databases.h"
#include "text/conversions.h"

namespace td {
namespace {

constexpr const char* kFormatId = "9001";

struct Column {
  int left;
  int width;
  int alignment;
  const char* caption;
  const char* name;
  const char* picture;
};

constexpr std::array<Column, 10> kColumns = {{
    {600, 600, 2, "序号", "FEntryID", ""},
    {1200, 1500, 0, "编码", "FNumber", ""},
    {2700, 2600, 0, "名称", "FItemName", ""},
    {5300, 1000, 0, "规格", "FModel", ""},
    {6300, 500, 2, "单位", "FUnit", ""},
    {6800, 800, 1, "箱数", "FMainQty", "0"},
    {7600, 900, 1, "数量", "FQty", "#,##0"},
    {8500, 900, 1, "单价", "FPrice", "0.00"},
    {9400, 1100, 1, "金额", "FAmount", "#,##0.00"},
    {10500, 900, 1, "税额", "FTax", "0.00"},
}};

std::string Quoted(std::string_view text) {
  return "'" + std::string(text) + "'";
}

// Statements that run one by one on one connection.
class Statements {
 public:
  explicit Statements(const std::string& connection)
      : connection_(databases_.Connect(connection)) {}
  void Run(const std::string& sql) { connection_->Execute(sql); }

  struct Item {
    int site, left, top, width, height;
    int type = 0;
    int alignment = 0;
    std::string variable{};
    std::string caption{};
    std::string picture{};
  };
  void AddItem(const Item& item) {
    std::string sql =
        "insert into TDBillDetail (FTDBillID,FSite,FLeft,FTop,FWidth,FHeight,FTypeID,FIsVariant,"
        "FAlignMent,FObjectFieldName,FObjectCaption,FFormatString) values (";
    sql += kFormatId;
    for (const int number : {item.site, item.left, item.top, item.width, item.height, item.type,
                             item.variable.empty() ? 0 : 1, item.alignment}) {
      sql.append(",").append(std::to_string(number));
    }
    for (const std::string& text : {item.variable, item.caption, item.picture}) {
      sql.append(",").append(Quoted(text));
    }
    Run(sql + ")");
  }
  void AddVariable(const std::string& caption, const std::string& name) {
    Run("insert into TDVariant (FTranType,FVarCaption,FVarName) values (" +
        std::to_string(kWorkBillType) + "," + Quoted(caption) + "," + Quoted(name) + ")");
  }

 private:
  Databases databases_;
  std::unique_ptr<Connection> connection_;
};

void AddHeadItems(Statements& statements) {
  const auto add = [&](int left, int top, int width, const std::string& variable,
                       const std::string& caption) {
    statements.AddItem({.site = 1,
                        .left = left,
                        .top = top,
                        .width = width,
                        .height = 400,
                        .variable = variable,
                        .caption = caption});
  };
  add(600, 300, 5000, "", "江城万源百货商贸有限公司");
  add(600, 700, 5000, "", "销 售 出 库 单");
  add(600, 1200, 3000, "单号", "单号：");
  add(3600, 1200, 3600, "客户", "客户：");
  add(7200, 1200, 2400, "日期", "日期：");
  add(9600, 1200, 1800, "", "单位：元");
}

std::string RowValues(int row, int bill) {
  constexpr std::array<const char*, 8> kGoods = {
      "禾田珍珠米十公斤装", "海天金标生抽王",   "镀锌水管六分厚壁", "不锈钢螺丝",
      "农夫山泉天然水",     "蓝月亮深层洁净衣", "心相印三层卷纸",   "公牛五孔插座面板"};
  constexpr std::array<const char*, 4> kUnits = {"袋", "瓶", "根", "盒"};
  const auto index = static_cast<std::size_t>(row);
  const int boxes = 1 + row % 9;
  const int quantity = boxes * 12;
  const int cents = 125 + row % 7000;
  const int taxCents = quantity * cents * 13 / 100;
  std::string values = "(" + std::to_string(bill) + "," + std::to_string(row) +
                       ",'XD-2024-0001','江城市第一中学','2024-03-31'";
  values += ",'SP" + std::to_string(100000 + row % 5000) + "'";
  values += "," + Quoted(std::string(kGoods[index % kGoods.size()]) + std::to_string(row % 97));
  values += "," + Quoted(std::to_string(1 + row % 40) + "×" + std::to_string(1 + row % 12));
  values += "," + Quoted(kUnits[index % kUnits.size()]);
  values += "," + std::to_string(boxes) + "," + std::to_string(quantity);
  values += "," + ToText(cents / 100.0) + "," + ToText(quantity * cents / 100.0);
  return values + "," + ToText(taxCents / 100.0) + ")";
}

}  // namespace

void MakeWorkFormat(const std::string& connection) {
  Statements statements(connection);
  const std::string billType = std::to_string(kWorkBillType);
  statements.Run("delete from TDBill where FTranType=" + billType);
  statements.Run("delete from TDVariant where FTranType=" + billType);
  statements.Run(std::string("delete from TDBillDetail where FTDBillID=") + kFormatId);
  statements.Run(
      "insert into TDBill (FTDBillID,FTranType,FTDBillName,FPaperSize,FPaperWidth,FPaperHeight,"
      "FRowsPerPage,FRowHeight,FHeaderPerPage,FFooterPerPage,FIntegralPage) values (" +
      std::string(kFormatId) + "," + billType + "," + Quoted(kWorkFormat) +
      ",9,11906,16838,25,480,1,1,0)");
  AddHeadItems(statements);
  constexpr int kColumnHead = 1800;
  constexpr int kFirstRow = 2280;
  constexpr int kRowHeight = 480;
  for (const Column& column : kColumns) {
    statements.AddItem({.site = 2,
                        .left = column.left,
                        .top = kColumnHead,
                        .width = column.width,
                        .height = kRowHeight,
                        .alignment = 2,
                        .caption = column.caption});
    statements.AddItem({.site = 3,
                        .left = column.left,
                        .top = kFirstRow,
                        .width = column.width,
                        .height = kRowHeight,
                        .alignment = column.alignment,
                        .variable = column.caption,
                        .caption = column.caption,
                        .picture = column.picture});
    statements.AddVariable(column.caption, column.name);
  }
  for (const int top : {kFirstRow, kFirstRow + kRowHeight - 20}) {
    statements.AddItem(
        {.site = 3, .left = 600, .top = top, .width = 10800, .height = 0, .type = 1});
  }
  const int foot = kFirstRow + kRowHeight;
  statements.AddItem({.site = 5,
                      .left = 600,
                      .top = foot,
                      .width = 2000,
                      .height = 400,
                      .variable = "页号",
                      .caption = "页号"});
  statements.AddItem({.site = 5,
                      .left = 9400,
                      .top = foot,
                      .width = 1100,
                      .height = 400,
                      .alignment = 1,
                      .variable = "本页金额",
                      .caption = "本页金额",
                      .picture = "#,##0.00"});
  statements.AddItem({.site = 5,
                      .left = 5000,
                      .top = foot,
                      .width = 2000,
                      .height = 400,
                      .alignment = 2,
                      .variable = "总页数",
                      .caption = "总页数"});
  statements.AddVariable("单号", "FBillNo");
  statements.AddVariable("客户", "FCustomer");
  statements.AddVariable("日期", "FDate");
  statements.AddVariable("页号", "fpageno");
  statements.AddVariable("本页金额", "ftotalpage");
  statements.AddVariable("总页数", "ftotalpageno");
}

void MakeWorkRows(const std::string& connection, int rows) {
  MakeWorkBills(connection, rows, rows);
}

void MakeWorkBills(const std::string& connection, int rows, int rowsOfABill) {
  Statements statements(connection);
  statements.Run("drop table if exists t_work");
  statements.Run(
      "create table t_work (FInterID integer,FEntryID integer primary key,FBillNo varchar(20),"
      "FCustomer varchar(50),FDate varchar(10),FNumber varchar(30),FItemName varchar(100),"
      "FModel varchar(50),FUnit varchar(10),FMainQty decimal(18,2),FQty decimal(18,2),"
      "FPrice decimal(18,2),FAmount decimal(18,2),FTax decimal(18,2))");
  constexpr int kRowsOfAnInsert = 1000;
  for (int row = 1; row <= rows;) {
    std::string sql = "insert into t_work values ";
    const int end = std::min(rows + 1, row + kRowsOfAnInsert);
    for (const char* comma = ""; row < end; ++row, comma = ",") {
      sql.append(comma).append(RowValues(row, 1 + (row - 1) / rowsOfABill));
    }
    statements.Run(sql);
  }
}

}  // namespace td
