// What a designer shows stands where the run draws it.
#include <gtest/gtest.h>

#include <map>

#include "designer/model/sheet_layout.h"
#include "scenario.h"

namespace td::designer {
namespace {

struct Settings {
  double left;
  double top;
  double header;
  bool integralPage;
  bool footerPerPage;
};

class LayoutOfRun : public ::testing::TestWithParam<Settings> {};

INSTANTIATE_TEST_SUITE_P(Settings, LayoutOfRun,
                         testing::Values(Settings{0, 0, 0, false, false},
                                         Settings{12.5, -7.25, 0, true, true},
                                         Settings{0, 30, -650, true, false},
                                         Settings{3, 4, 300, true, true}));

TEST_P(LayoutOfRun, EachItemStandsWhereTheRunDrawsIt) {
  const Settings& settings = GetParam();
  constexpr int kRows = 4;
  td::Scenario scenario;
  scenario.Format({{"FRowsPerPage", kRows},
                   {"FRowHeight", 300},
                   {"FAdjuctLeft", settings.left},
                   {"FAdjuctTop", settings.top},
                   {"FAdjuctHeader", settings.header},
                   {"FIntegralPage", settings.integralPage ? 1 : 0},
                   {"FFooterPerPage", settings.footerPerPage ? 1 : 0},
                   {"FHeaderPerPage", 1}});
  Format format = NewFormat(21, "销售单");
  format.row.PutNumber("FRowsPerPage", kRows);
  format.row.PutNumber("FRowHeight", 300);
  format.row.PutNumber("FAdjuctLeft", settings.left);
  format.row.PutNumber("FAdjuctTop", settings.top);
  format.row.PutNumber("FAdjuctHeader", settings.header);
  const std::map<ItemSite, const char*> texts = {{ItemSite::kHead, "头"},
                                                 {ItemSite::kColumnHead, "列"},
                                                 {ItemSite::kRow, "行"},
                                                 {ItemSite::kAfterRows, "计"},
                                                 {ItemSite::kFoot, "脚"}};
  for (const auto& [site, text] : texts) {
    const double place = 1000 + 100.0 * static_cast<int>(site);
    scenario.Item({{"FSite", static_cast<int>(site)},
                   {"FObjectCaption", text},
                   {"FLeft", place},
                   {"FTop", place}});
    Item item = NewItem(format, ItemKind::kText, site, {place, place, 500, 200});
    item.id = format.NewItemId();
    item.row.Set("FObjectCaption", std::string(text));
    format.items.Append(item);
  }
  scenario.Bills({12});

  const SheetLayout layout = LayoutOf(format);
  std::map<std::string, int> rowsOfPage;
  int checked = 0;
  for (const td::Drawn& drawn : scenario.Run().Boxes()) {
    const PageOfBill page = drawn.page == 1 ? PageOfBill::kFirst : PageOfBill::kLater;
    if (drawn.page == 3) continue;  // what is left over when later pages have more rows
    for (const Item& item : format.items) {
      if (item.row.Text("FObjectCaption") != drawn.text) continue;
      const bool isRow = item.Site() == ItemSite::kRow;
      const int row = isRow ? rowsOfPage[std::to_string(drawn.page)]++ : 0;
      const Point offset = layout.OffsetOf(item.Site(), row, layout.RowsOn(page), page);
      const Box expected = item.Place().MovedBy(offset.x, offset.y);
      EXPECT_DOUBLE_EQ(drawn.left, expected.left) << drawn.text << drawn.page;
      EXPECT_DOUBLE_EQ(drawn.top, expected.top) << drawn.text << drawn.page << " row " << row;
      EXPECT_TRUE(page == PageOfBill::kLater || DrawnBox(layout, item, row) == expected);
      ++checked;
    }
  }
  EXPECT_GE(checked, 14);
  EXPECT_EQ(rowsOfPage["1"], kRows);
  EXPECT_EQ(rowsOfPage["2"], layout.RowsOn(PageOfBill::kLater));
}

}  // namespace
}  // namespace td::designer
