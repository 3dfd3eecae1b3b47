#include "designer/model/sheet_layout.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "designer/model/item_choices.h"
#include "items/lines_and_pictures.h"
#include "page_document/paper.h"
#include "platform/failure.h"
#include "platform/print_surface.h"
#include "text/conversions.h"

namespace td::designer {
namespace {

// A whole number as a run reads it; 0 where the run would fail.
int WholeNumber(const Row& row, std::string_view column) {
  try {
    return ToInteger32(row.Get(column));
  } catch (const Failure&) {
    return 0;
  }
}

PaperExtent SheetOf(const Format& format, const Box& paper) {
  const PaperExtent kept{paper.width, paper.height};
  if (IsNull(format.row.Get("FPaperWidth"))) return kept;
  const int code = WholeNumber(format.row, "FPaperSize");
  if (code == kUserDefinedPaper) {
    return {format.row.Number("FPaperWidth"), format.row.Number("FPaperHeight")};
  }
  return StandardPaper(code).value_or(kept);
}

double TopOfFirstRow(const SheetLayout& layout, const Format& format) {
  std::optional<double> top;
  double below = 0;
  for (const Item& item : format.items) {
    if (!IsDrawn(item)) continue;
    const Box box = DrawnBox(layout, item);
    if (item.Site() == ItemSite::kRow) top = std::min(top.value_or(box.top), box.top);
    if (item.Site() == ItemSite::kHead || item.Site() == ItemSite::kColumnHead) {
      below = std::max(below, box.Bottom());
    }
  }
  return top.value_or(below);
}

}  // namespace

int SheetLayout::RowsOn(PageOfBill page) const {
  if (page == PageOfBill::kFirst || rowHeight == 0) return rowsPerPage;
  return rowsPerPage + static_cast<int>(std::trunc(std::abs(header) / rowHeight));
}

Point SheetLayout::OffsetOf(ItemSite site, int row, int rowsOnPage, PageOfBill page) const {
  Point offset{left, top};
  if (site == ItemSite::kHead) return offset;
  if (page == PageOfBill::kLater) offset.y += header;
  if (site == ItemSite::kRow) offset.y += row * rowHeight;
  if (site == ItemSite::kAfterRows || site == ItemSite::kFoot) {
    offset.y += (rowsOnPage - 1) * rowHeight;
  }
  return offset;
}

SheetLayout LayoutOf(const Format& format, const Box& paper) {
  const Row& row = format.row;
  PaperExtent sheet = SheetOf(format, paper);
  if (row.Flag("FOrientation")) std::swap(sheet.width, sheet.height);
  return {.width = sheet.width,
          .height = sheet.height,
          .left = row.Number("FAdjuctLeft"),
          .top = row.Number("FAdjuctTop"),
          .header = row.Number("FAdjuctHeader"),
          .rowHeight = row.Number("FRowHeight"),
          .rowsPerPage = WholeNumber(row, "FRowsPerPage"),
          .headerPerPage = row.Flag("FHeaderPerPage"),
          .footerPerPage = row.Flag("FFooterPerPage"),
          .integralPage = row.Flag("FIntegralPage")};
}

Box DrawnBox(const SheetLayout& layout, const Item& item, int row) {
  const Point offset = layout.OffsetOf(item.Site(), row);
  Box box = item.Place().MovedBy(offset.x, offset.y);
  if (item.Kind() != ItemKind::kLine) return box;
  const Value& border = item.row.Get("Fborderwidth");
  const double pen = PenWidthOf(IsNumeric(border) ? border : Value(Null{}));
  const bool isAcross = box.width > box.height;
  if (isAcross) {
    return {box.left, box.top - pen / 2, box.width, pen};
  }
  return {box.left - pen / 2, box.top, pen, box.height};
}

bool IsDrawn(const Item& item) {
  if (std::ranges::find(kAllSites, item.Site()) == kAllSites.end()) return false;
  const Value& type = item.row.Get("FTypeID");
  const double kind = item.row.Number("FTypeID");
  if (!IsNumeric(type) || (kind != 0 && kind != 1 && kind != 2)) return false;
  if (item.Site() == ItemSite::kHead) return true;
  return item.row.Number("FLeft") >= 0 && item.row.Number("FTop") >= 0;
}

bool IsDrawnOnForm(const Item& item) {
  return IsDrawn(item) &&
         (item.row.Number("FIsVariant") == 1 || item.row.Number("FMustPrint") == 1);
}

std::optional<Box> BandBox(const SheetLayout& layout, const Format& format, ItemSite site) {
  std::optional<Box> band;
  for (const Item& item : format.items) {
    if (item.Site() != site || !IsDrawn(item)) continue;
    const Box box = DrawnBox(layout, item);
    band = band ? Around(*band, box) : box;
  }
  if (site != ItemSite::kRow) return band;
  Box rows{0, TopOfFirstRow(layout, format), layout.width, layout.rowsPerPage * layout.rowHeight};
  if (band) {
    rows.left = band->left;
    rows.width = band->width;
  }
  return rows;
}

std::vector<double> RowTops(const SheetLayout& layout, const Format& format) {
  constexpr int kMostRows = 10000;  // a mistyped number of rows is no reason to run out of memory
  const int rows = std::clamp(layout.rowsPerPage, 0, kMostRows);
  std::vector<double> tops;
  tops.reserve(static_cast<std::size_t>(rows));
  const double first = TopOfFirstRow(layout, format);
  for (int row = 0; row < rows; ++row) tops.push_back(first + row * layout.rowHeight);
  return tops;
}

Point ToStored(const SheetLayout& layout, ItemSite site, Point onSheet) {
  const Point offset = layout.OffsetOf(site);
  return {onSheet.x - offset.x, onSheet.y - offset.y};
}

Point ToSheet(const SheetLayout& layout, ItemSite site, Point stored) {
  const Point offset = layout.OffsetOf(site);
  return {stored.x + offset.x, stored.y + offset.y};
}

}  // namespace td::designer
