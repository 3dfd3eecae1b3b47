// One scenario through the plain window and through the stock-area window: each difference between
// the two traces has a name (named_differences.h), and no other difference is allowed.
//
// Bands are one below the other: 头 the head, 列 the column head, the rows, 计 behind the rows with
// the page number, 脚 the foot.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "named_differences.h"
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
