// Where things stand on the sheet: the arithmetic of a run without the run. All lengths are twips.
#pragma once

#include <optional>
#include <vector>

#include "designer/model/format.h"
#include "designer/model/lengths.h"

namespace td::designer {

// The first page of a bill, or a later one, whose bands 2 to 5 FAdjuctHeader shifts.
enum class PageOfBill { kFirst, kLater };

// The columns of a format that decide where its bands stand, as a run reads them. What is no number
// counts as 0.
struct SheetLayout {
  double width = 0;  // of the sheet as it is printed on: across and along are swapped already
  double height = 0;
  double left = 0;  // FAdjuctLeft and FAdjuctTop: added to every item
  double top = 0;
  double header = 0;  // FAdjuctHeader
  double rowHeight = 0;
  int rowsPerPage = 0;
  bool headerPerPage = false;
  bool footerPerPage = false;
  bool integralPage = false;

  // The rows of a page: later ones have more by the rows that fit into the shift.
  [[nodiscard]] int RowsOn(PageOfBill page) const;

  // What is added to an item's stored place. `row` counts from 0 and matters to band 3 alone; the
  // bands 4 and 5 stand where they do below `rowsOnPage` rows.
  [[nodiscard]] Point OffsetOf(ItemSite site, int row, int rowsOnPage,
                               PageOfBill page = PageOfBill::kFirst) const;
  // The same on a full first page.
  [[nodiscard]] Point OffsetOf(ItemSite site, int row = 0) const {
    return OffsetOf(site, row, rowsPerPage);
  }
};

// `paper` is the sheet where the format leaves the paper as it is; upright, as StandardPaper has
// it.
[[nodiscard]] SheetLayout LayoutOf(const Format& format,
                                   const Box& paper = {0, 0, 11905.51, 16837.8});

// Where an item is drawn on a full first page: a line is a box of its thickness around it. A
// picture file prints at its natural size, which the caller knows: it is drawn at its place with
// the stored width and height here. `row` as for OffsetOf.
[[nodiscard]] Box DrawnBox(const SheetLayout& layout, const Item& item, int row = 0);

// Whether an item is drawn at all: bands 2 to 5 leave out one with a negative left or top, and what
// is none of the three kinds or in none of the five bands is drawn nowhere.
[[nodiscard]] bool IsDrawn(const Item& item);

// Whether it is drawn when only the values are, on a pre-printed form.
[[nodiscard]] bool IsDrawnOnForm(const Item& item);

// The strip of a band on a full first page, from its topmost item to its lowest; of the rows, from
// the first row's top to the end of the last. Nothing for a band without a drawn item, except the
// rows, which have a height of their own.
[[nodiscard]] std::optional<Box> BandBox(const SheetLayout& layout, const Format& format,
                                         ItemSite site);

// The top of each row on a full first page, rowsPerPage of them, but 10,000 at most: where the
// ghosts of the first row's items go. The first row begins at the topmost item of band 3, or below
// the lowest item of the bands 1 and 2 if the row is empty.
[[nodiscard]] std::vector<double> RowTops(const SheetLayout& layout, const Format& format);

// Turns a place on the sheet into the one that is stored, and back.
[[nodiscard]] Point ToStored(const SheetLayout& layout, ItemSite site, Point onSheet);
[[nodiscard]] Point ToSheet(const SheetLayout& layout, ItemSite site, Point stored);

}  // namespace td::designer
