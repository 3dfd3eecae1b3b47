// One scenario through the plain window and through the stock-area window: each difference between
// the two traces has a name here, and no other difference is allowed.
//
// Bands are one below the other: 头 the head, 列 the column head, the rows, 计 behind the rows with
// the page number, 脚 the foot.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "scenario.h"
#include "trace_difference.h"

namespace td {
namespace {

using Fields = Scenario::Fields;

enum class Window { kPlain, kStockArea };

// Rows of the columns FInterID, FStockArea, FName.
Json Rows(std::initializer_list<std::initializer_list<Json>> rows) {
  Json data = {{"columns", {"FInterID", "FStockArea", "FName"}}, {"rows", Json::array()}};
  for (const auto& row : rows) data["rows"].push_back(std::vector<Json>(row));
  return data;
}

class Calls {
 public:
  Calls(Scenario& scenario, Window window) : scenario_(scenario), window_(window) {}

  void Print(Fields fields) {
    window_ == Window::kPlain ? scenario_.Print(fields) : scenario_.PrintByArea(fields);
  }
  void Preview(Scenario::Steps user, Fields fields) {
    window_ == Window::kPlain ? scenario_.Preview(std::move(user), fields)
                              : scenario_.PreviewByArea(std::move(user), fields);
  }

 private:
  Scenario& scenario_;
  Window window_;
};

// A format with the bands 头 列 行 计 脚 one below the other, its rows showing FName.
void AddBands(Scenario& scenario, int format) {
  const auto item = [&](int site, int top, const char* text) {
    scenario.Item(
        {{"FTDBillID", format}, {"FSite", site}, {"FTop", top}, {"FObjectCaption", text}});
  };
  item(1, 0, "头");
  item(2, 700, "列");
  scenario.FieldItem("FName", {{"FTDBillID", format}, {"FObjectCaption", ""}});
  scenario.FieldItem(
      "fpageno", {{"FTDBillID", format}, {"FSite", 4}, {"FTop", 1300}, {"FObjectCaption", "计"}});
  item(5, 1600, "脚");
}

// The format "多样": what the windows draw in different ways, all in one row.
void AddItemsThatDiffer(Scenario& scenario, int format) {
  int top = 0;
  const auto item = [&](int site, const char* name, const Json& caption) {
    scenario.Item({{"FTDBillID", format},
                   {"FSite", site},
                   {"FTop", top += 10},
                   {"FObjectFieldName", name},
                   {"FObjectCaption", caption}});
  };
  const auto field = [&](const char* name, const char* caption, const char* picture) {
    scenario.FieldItem(name, {{"FTDBillID", format},
                              {"FSite", 4},
                              {"FTop", top += 10},
                              {"FObjectCaption", caption},
                              {"FFormatString", picture}});
  };
  scenario.Variable("品名", "FName");
  item(1, "品名", "品名");
  item(1, "<单号条码图>", "单号");
  item(1, "<随机条码图>", "随机");
  item(1, "<用户条码图>", "用户");
  item(3, "品名", "品名");
  item(3, "注", "注");
  item(3, "", "前");
  item(3, "", nullptr);
  item(3, "<单号条码图>", "单号");
  item(3, "<随机条码图>", "随机");
  item(3, "<商品图片>", "图片");
  field("ftotalpage", "额", "");
  field("ftotalpagetax", "税", "0.00");
  field("ftotalpagenotaxamount", "净", "0.00");
  field("ftotalpage_1", "累", "");
  field("ftotalpage_1", "累", "0.00");
  field("FTotalPage_1_Dx", "累", "");
  field("FSkd_TotalPage", "收", "");
}

Scenario Printed(Window window) {
  Scenario scenario;
  scenario.Format({{"FTDBillName", "纸张"}});
  scenario.AddFormat({{"FTDBillName", "页脚在尾"}});
  scenario.AddFormat({{"FTDBillName", "每页页脚"}, {"FFooterPerPage", 1}});
  scenario.AddFormat({{"FTDBillName", "多样"}});
  scenario.AddFormat({{"FTDBillName", "旧打印机"}});
  scenario.MachinePaper({{"FTDBillName", "纸张"}});
  scenario.MachinePaper({{"FTDBillName", "旧打印机"}, {"FDevice", "已拆"}});
  AddBands(scenario, 2);
  AddBands(scenario, 3);
  AddItemsThatDiffer(scenario, 4);
  scenario.GoodsPicture(7, {{"base64", "AAAA"}});

  Calls calls(scenario, window);
  const Json oneRow = Rows({{1, "A", "甲"}});
  calls.Preview({"nextpage", "zoom", "print"}, {{"TDBillName", "纸张"}, {"data", oneRow}});
  calls.Print({{"TDBillName", "旧打印机"}, {"data", oneRow}});
  calls.Print({{"TDBillName", "页脚在尾"}, {"data", Rows({{1, "A", "甲"}, {1, "B", "乙"}})}});
  calls.Print({{"TDBillName", "页脚在尾"}, {"data", Rows({{1, "A", "甲"}, {2, "A", "乙"}})}});
  calls.Print({{"TDBillName", "页脚在尾"}, {"data", Rows({{1, "A", "甲"}, {2, "B", "乙"}})}});
  calls.Print({{"TDBillName", "每页页脚"}, {"data", oneRow}});
  calls.Print(
      {{"TDBillName", "多样"},
       {"data",
        {{"columns",
          {"FInterID", "FStockArea", "FName", "FAmount", "FQty", "FPrice", "FTaxRate", "FTax",
           "FNoTaxAmount", "FMainQty", "FBillNo", "FBillNoBarCode", "FUserBarCode", "FItemiD"}},
         {"rows",
          {{1, "A", "甲", 113, 10, 11.3, 13, 12, 101, 1, "单1", "随1", "用1", 7},
           {1, "A", "备注", 50, 0, 0, 0, 5, 45, -999.99, "单1", "随1", "用1", nullptr}}}}}});
  scenario.BlankRows(1);
  calls.Print({{"TDBillName", "每页页脚"}, {"data", Rows({{1, "A", "甲"}, {1, "A", "乙"}})}});
  return scenario;
}

// What the plain window does and the stock-area window doesn't, and the other way round.
struct NamedDifference {
  std::string name;
  std::vector<Hunk> hunks;
};

// One call after the other; see Printed().
const std::vector<NamedDifference>& NamedDifferences() {
  static const std::vector<NamedDifference> differences = {
      {"The load leaves the surface's own margins.",
       {{{"put MarginLeft 0", "put MarginBottom 0", "put MarginRight 0", "put MarginTop 0"}, {}}}},
      {"The first activation does not read PrintAdvertising.",
       {{{"query Select Fvalue from t_systemprofile where fkey='PrintAdvertising'"}, {}}}},
      {"Of the machine's paper the code comes first, then the orientation.",
       {{{"put Orientation 0"}, {}}, {{}, {"put Orientation 0"}}}},
      {"No export file is written.",
       {{{"put ExportFormat 1", "put ExportFile c:\\订单.html"}, {}}}},

      {"A bill that goes on in another area breaks there, without a foot.",
       {{{"band 3: 乙 100,1300", "band 4: 计1 100,1600", "band 5: 脚 100,1900"},
         {"band 4: 计1 100,1300", "NewPage", "OnEndPage", "OnNewPage", "band 2: 列 100,700",
          "band 3: 乙 100,1000", "band 4: 计2 100,1300", "band 5: 脚 100,1600"}},
        {{"pagetext 第1页   共1页"}, {"pagetext 第1页   共2页"}}}},
      {"Two bills of one area run straight on, and the clone stays.",
       {{{"band 4: 计1 100,1300", "band 5: 脚 100,1600", "NewPage", "OnEndPage", "OnNewPage",
          "band 1: 头 100,0", "band 2: 列 100,700", "band 3: 乙 100,1000", "band 4: 计1 100,1300",
          "band 5: 脚 100,1600"},
         {"band 3: 乙 100,1300", "band 4: 计1 100,1600", "band 5: 脚 100,1900"}},
        {{"pagetext 第1页   共2页"}, {"pagetext 第1页   共1页"}},
        {{"after PrintOk=true PrintBlankRows=0 TDBillName=页脚在尾 row=0 clone=1"},
         {"after PrintOk=true PrintBlankRows=0 TDBillName=页脚在尾 row=0 clone=0"}}}},
      {"The group that ends has no foot; only the document has.", {{{"band 5: 脚 100,1600"}, {}}}},
      {"The head is not forced where a new group begins.", {{{"band 1: 头 100,0"}, {}}}},
      {"The page number goes on through the document.",
       {{{"band 4: 计1 100,1300"}, {"band 4: 计2 100,1300"}}}},
      {"A foot for each page stands twice on the last one.",
       {{{}, {"band 5: 脚 100,1600"}}, {{}, {"band 5: 脚 100,1900"}}}},

      {"A label that repeats the item's name is printed, of a value and of a fixed text.",
       {{{"TextBox 甲 100,10"}, {"TextBox 品名甲 100,10"}},
        {{"TextBox 甲 100,50"}, {"TextBox 品名甲 100,50"}},
        {{"TextBox 备注 100,350"}, {"TextBox 品名备注 100,350"}},
        {{"TextBox  100,60"}, {"TextBox 注 100,60"}},
        {{"TextBox  100,360"}, {"TextBox 注 100,360"}}}},
      {"A Null label is an empty one, not that of the item before.",
       {{{"TextBox 前 100,80"}, {"TextBox  100,80"}},
        {{"TextBox 前 100,380"}, {"TextBox  100,380"}}}},
      {"The head knows none of the three barcodes.",
       {{{"barcode 单1", "DrawPicture barcode:单1 100,20"}, {"TextBox 单号 100,20"}},
        {{"barcode 随1", "DrawPicture barcode:随1 100,30"}, {"TextBox 随机 100,30"}},
        {{"barcode 用1", "DrawPicture barcode:用1 100,40"}, {"TextBox 用户 100,40"}}}},
      {"Rows know neither barcodes nor goods pictures: such an item is a text, at its row's place.",
       {{{"barcode 单1", "DrawPicture barcode:单1 100,90"}, {"TextBox 单号 100,90"}},
        {{"barcode 单1", "DrawPicture barcode:单1 100,90"}, {"TextBox 单号 100,390"}},
        {{"barcode 随1", "DrawPicture barcode:随1 100,100"}, {"TextBox 随机 100,100"}},
        {{"barcode 随1", "DrawPicture barcode:随1 100,100"}, {"TextBox 随机 100,400"}},
        {{"query select FItemID,FPicture,FPicPath from t_icitem_Picture where FItemID=7",
          R"({"e":"file","a":"save","path":"picture/7.jpg"})",
          R"({"e":"file","a":"load","path":"picture/7.jpg"})", "DrawPicture goods:7 100,110"},
         {"TextBox 图片 100,110"}},
        {{"DrawPicture goods:7 100,410"}, {"TextBox 图片 100,410"}}}},
      {"A row between the lines, with the quantity -999.99, counts like any other.",
       {{{"TextBox 额113 100,420"}, {"TextBox 额163 100,420"}}}},
      {"Tax and amount without tax are summed from their columns.",
       {{{"TextBox 税13.00 100,430"}, {"TextBox 税17.00 100,430"}},
        {{"TextBox 净100.00 100,440"}, {"TextBox 净146.00 100,440"}}}},
      {"A sum that is not kept prints the label alone, or 0 under a picture and in capitals.",
       {{{"TextBox 累113 100,450"}, {"TextBox 累 100,450"}},
        {{"TextBox 累113.00 100,460"}, {"TextBox 累0.00 100,460"}},
        {{"TextBox 累壹佰壹拾叁圆整 100,470"}, {"TextBox 累整 100,470"}}}},
      {"Four page sums are unknown, and no column has their name.",
       {{{"TextBox 收0 100,480"}, {}}}},

      {"A printer that is refused ends the run with the reason, without the default printer.",
       {{{"box 找不到打印“已拆”，将采用默认打印机！",
          "put Orientation 0",
          "put PaperSize 9",
          "put ExportFormat 1",
          "put ExportFile c:\\订单.html",
          "StartDoc",
          "OnNewPage",
          "band 1",
          "band 2",
          "band 3",
          "band 4",
          "band 5",
          "EndDoc",
          "OnEndPage",
          "OnEndDoc",
          "pagetext 第1页   共1页",
          R"({"e":"enable","k":"print","v":true})",
          R"({"e":"enable","k":"zoom","v":true})",
          R"({"e":"enable","k":"exit","v":true})",
          "put MousePointer 1",
          "PrintDoc",
          "after PrintOk=true PrintBlankRows=0 TDBillName=旧打印机 row=0 clone=0"},
         {"box 无效的属性值",
          "after PrintOk=false PrintBlankRows=0 TDBillName=旧打印机 row=0 clone=0"}}}},
      {"Blank rows are not looked at: the sheet is printed from its head to its foot.",
       {{{"band 1:  100,0"}, {"band 1: 头 100,0", "band 2: 列 100,700", "band 3: 甲 100,1000"}},
        {{}, {"band 4: 计1 100,1600", "band 5: 脚 100,1900"}},
        {{"after PrintOk=true PrintBlankRows=0 TDBillName=每页页脚 row=0 clone=0"},
         {"after PrintOk=true PrintBlankRows=1 TDBillName=每页页脚 row=0 clone=0"}}}},
  };
  return differences;
}

bool BeginsWith(const ShortTrace& lines, const ShortTrace& beginning) {
  return lines.size() >= beginning.size() &&
         std::equal(beginning.begin(), beginning.end(), lines.begin());
}

ShortTrace Without(const ShortTrace& lines, const ShortTrace& beginning) {
  return {lines.begin() + static_cast<std::ptrdiff_t>(beginning.size()), lines.end()};
}

// Whether named differences, one behind the other, make up the hunk; their names go to `names`.
bool IsExplained(const Hunk& hunk, std::set<std::string>& names) {
  if (hunk == Hunk{}) return true;
  for (const NamedDifference& difference : NamedDifferences()) {
    for (const Hunk& part : difference.hunks) {
      if (!BeginsWith(hunk.one, part.one) || !BeginsWith(hunk.other, part.other)) continue;
      const Hunk rest{Without(hunk.one, part.one), Without(hunk.other, part.other)};
      if (!IsExplained(rest, names)) continue;
      names.insert(difference.name);
      return true;
    }
  }
  return false;
}

std::string Text(const Hunk& hunk) {
  std::string text;
  for (const std::string& line : hunk.one) text += "plain only: " + line + "\n";
  for (const std::string& line : hunk.other) text += "by area only: " + line + "\n";
  return text;
}

TEST(SideBySide, TheWindowsDifferInWhatIsNamedHereAndInNothingElse) {
  std::set<std::string> found;
  for (const Hunk& hunk : Differences(Shortened(Printed(Window::kPlain).Run()),
                                      Shortened(Printed(Window::kStockArea).Run()))) {
    EXPECT_TRUE(IsExplained(hunk, found)) << "unexplained:\n" << Text(hunk);
  }
  for (const NamedDifference& difference : NamedDifferences()) {
    EXPECT_TRUE(found.contains(difference.name)) << "did not appear: " << difference.name;
  }
}

TEST(SideBySide, OneWindowTwiceDoesNotDiffer) {
  EXPECT_EQ(Differences(Shortened(Printed(Window::kPlain).Run()),
                        Shortened(Printed(Window::kPlain).Run())),
            std::vector<Hunk>());
}

}  // namespace
}  // namespace td
