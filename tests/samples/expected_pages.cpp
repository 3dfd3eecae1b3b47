#include "expected_pages.h"

#include <cmath>
#include <utility>

namespace td {
namespace {

struct PagePlan {
  std::size_t firstRow = 0;
  std::size_t rowCount = 0;
  std::size_t capacity = 0;
  std::size_t pageOfBill = 1;  // of the whole print, if it is by area
  bool endsBill = false;       // or the whole print, if it is by area
  double shift = 0;
};

// What the rows of one page have in common: the bill, or the first letter of the stock area.
std::string GroupOf(const SampleRow& row, bool byArea) {
  return byArea ? row.Text("fstockarea").substr(0, 1) : row.Text("finterid");
}

std::vector<PagePlan> PlanPages(const SampleFormat& format, const std::vector<SampleRow>& rows,
                                bool byArea) {
  std::vector<PagePlan> plans;
  std::size_t capacity = format.rowsPerPage;
  std::size_t pageOfBill = 1;
  for (std::size_t row = 0; row < rows.size(); row += plans.back().rowCount) {
    const std::string group = GroupOf(rows[row], byArea);
    std::size_t count = 1;
    while (count < capacity && row + count < rows.size() &&
           GroupOf(rows[row + count], byArea) == group) {
      ++count;
    }
    const std::size_t next = row + count;
    const bool endsBill = next == rows.size() || (!byArea && GroupOf(rows[next], byArea) != group);
    plans.push_back(
        {row, count, capacity, pageOfBill, endsBill, plans.empty() ? 0 : format.headerShift});
    if (plans.size() == 1) {
      capacity += static_cast<std::size_t>(std::abs(format.headerShift) / format.rowHeight);
    }
    pageOfBill = endsBill ? 1 : pageOfBill + 1;
  }
  return plans;
}

class PageDrawing {
 public:
  PageDrawing(const SampleFormat& format, bool onlyVariables, ExpectedPage& page)
      : format_(format), onlyVariables_(onlyVariables), page_(page) {}

  void Draw(Band band, double offset, const Occasion& occasion) {
    for (const SampleItem& item : format_.items) {
      if (item.band != band) continue;
      const Area area = {item.area.left, item.area.top + offset, item.area.width, item.area.height};
      if (onlyVariables_ && !item.printsOnForms) {
        if (item.kind == Kind::kLine) page_.leftOut.push_back(Line(item, area));
      } else {
        DrawItem(item, area, occasion);
      }
    }
  }

  void DrawEmptyRow(double offset) {
    for (const SampleItem& item : format_.items) {
      if (item.band != Band::kRow || item.kind != Kind::kLine) continue;
      const Area area = {item.area.left, item.area.top + offset, item.area.width, item.area.height};
      (onlyVariables_ ? page_.leftOut : page_.lines).push_back(Line(item, area));
    }
  }

 private:
  static PlacedLine Line(const SampleItem& item, Area area) {
    (area.width > area.height ? area.height : area.width) = 0;
    return {area, item.border > 1 ? item.border * 9 : 14};
  }

  void DrawItem(const SampleItem& item, const Area& area, const Occasion& occasion) {
    if (item.kind == Kind::kLine) {
      page_.lines.push_back(Line(item, area));
    } else if (item.variable.starts_with("<")) {
      page_.images.push_back({area, item.variable, occasion.row});
    } else if (std::optional<std::string> text = ExpectedText(item, occasion)) {
      page_.texts.push_back({std::move(*text), item, area});
    }
  }

  const SampleFormat& format_;
  bool onlyVariables_;
  ExpectedPage& page_;
};

// Rows behind the blank ones and nothing else: the sheet has been through the printer before.
std::vector<ExpectedPage> ContinuedSheet(const SampleFormat& format,
                                         const std::vector<SampleRow>& rows, bool onlyVariables,
                                         std::size_t blankRows) {
  std::vector<ExpectedPage> pages(1);
  PageDrawing drawing(format, onlyVariables, pages.front());
  const ExpectedSums sums(false);
  for (std::size_t row = blankRows; row < rows.size(); ++row) {
    drawing.Draw(Band::kRow, static_cast<double>(row) * format.rowHeight,
                 {rows[row], sums, row + 1, 1, 1, 1, false});
  }
  return pages;
}

}  // namespace

std::vector<ExpectedPage> ExpectPages(const SampleFormat& format,
                                      const std::vector<SampleRow>& rows, const PrintWay& way) {
  if (way.blankRows > 0) return ContinuedSheet(format, rows, way.onlyVariables, way.blankRows);
  const std::vector<PagePlan> plans = PlanPages(format, rows, way.byArea);
  std::vector<ExpectedPage> pages(plans.size());
  ExpectedSums sums(way.byArea);
  for (std::size_t number = 0; number < plans.size(); ++number) {
    const PagePlan& plan = plans[number];
    PageDrawing drawing(format, way.onlyVariables, pages[number]);
    const auto occasion = [&](std::size_t row) {
      return Occasion{rows[row],       sums,         row + 1,   number + 1,
                      plan.pageOfBill, plans.size(), way.byArea};
    };
    const auto offset = [&](std::size_t line) {
      return static_cast<double>(line) * format.rowHeight + plan.shift;
    };
    sums.BeginPage();
    if (format.headerPerPage || plan.pageOfBill == 1) {
      drawing.Draw(Band::kHead, 0, occasion(plan.firstRow));
    }
    drawing.Draw(Band::kColumnHead, plan.shift, occasion(plan.firstRow));
    for (std::size_t line = 0; line < plan.rowCount; ++line) {
      sums.Add(rows[plan.firstRow + line]);
      drawing.Draw(Band::kRow, offset(line), occasion(plan.firstRow + line));
    }
    std::size_t lines = plan.rowCount;
    if (format.integralPage) {
      while (lines < plan.capacity) drawing.DrawEmptyRow(offset(lines++));
    }
    drawing.Draw(Band::kBehindRows, offset(lines - 1), occasion(plan.firstRow));
    if (format.footerPerPage || plan.endsBill) {
      drawing.Draw(Band::kFoot, offset(lines - 1), occasion(plan.firstRow));
    }
  }
  return pages;
}

}  // namespace td
