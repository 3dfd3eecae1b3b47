// The variables of the runs of one print window; they live as long as the window.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace td {

// The places where the total page count can stand; each holds the last item that was drawn there.
enum class StampSlot : std::size_t {
  kColumnHead,  // an item of the column head: the same place on every page, but for AdjuctHeader
  kFirstPage,   // an item of another band, where the first page drew it
  kLaterPage,   // the same, where the latest page drew it; in the end that is the last page
};

// One place on the page where the total page count is written when the document ends.
struct TotalPageStamp {
  double StampLeft = 0;
  double StampTop = 0;
  double StampWidth = 0;
  double StampHeight = 0;
  std::string StampFontName;  // empty: the slot is not in use
  std::int16_t StampFontSize = 0;
  bool StampFontBold = false;
};

// Sums over the rows of the current page.
struct PageSums {
  double PageAmount = 0;
  double PageTax = 0;
  double PageNoTaxAmount = 0;
  double PageRetailAmount = 0;
  double PageBzkAmount = 0;
  double PageQty = 0;
  double PageSumQty = 0;
  double PageMainQty = 0;
  double PageSlaveQty = 0;
  double PageCredit = 0;
  double PageDebit = 0;
  double PageSaleAmount = 0;
  double PagePurAmount = 0;
  double PageSkd = 0;
  double PageFkd = 0;
  double AreaPageAmount = 0;  // stock-area run only; a record that nothing reads
};

// Sums over all rows, re-runs on the same window included: nothing clears them.
struct RunSums {
  double SumAmount = 0;  // marker rows included
  double RunAmount = 0;
  double RunTax = 0;
  double RunNoTaxAmount = 0;
  double RunMainQty = 0;
  double RunFreight = 0;
  double RunFreightAmount = 0;
};

// Lengths are twips.
struct RunState {
  bool IsFirstActivate = false;  // no run was started by the window's activation yet
  std::string PrintAdvertising;
  bool MustShowComplexQty = false;

  // Layout of the format, read at each run.
  float AdjuctLeft = 0;
  float AdjuctTop = 0;
  double AdjuctHeader = 0;  // shift of the bands on later pages
  double RowHeight = 0;
  std::int32_t RowsPerPage = 0;
  bool HeaderPerPage = false;
  bool FooterPerPage = false;
  bool IntegralPage = false;

  PageSums page;
  RunSums run;

  std::int16_t OrderId = 0;           // number of the current row
  std::int16_t RowsOnPage = 0;        // rows placed on this page, skipped ones included
  std::int16_t BlankRowsAtStart = 0;  // 1 or more: blank-row mode
  double CurrentRowTop = 0;           // offset of the current row
  double BandShift = 0;               // AdjuctHeader from the first new page on
  double HeaderEndY = 0;              // where the head ended; a record that nothing reads
  bool IsBodyStarted = false;         // the first page's bands are drawn
  bool AdjustRowsOnce = false;        // the growth of RowsPerPage is still due
  bool Site4Pending = false;          // a row was placed since the last band after the rows

  std::string CurrentInterId;      // the bill in progress, empty when none
  std::string CurrentArea;         // stock area of the last row, in the stock-area run
  std::int32_t RowInterId = 0;     // bill of the last row, in the stock-area run; its conversion
                                   // checks the number, and nothing reads it
  std::int16_t PageOfBill = 0;     // page number within the bill
  std::int16_t BillPageCount = 0;  // like PageOfBill, for BillPages
  // By document page number and "page": the pages of the page's bill. A record that nothing reads.
  std::map<std::string, std::int16_t> BillPages;

  bool HasTotalPageStamp = false;
  double StampCount = 0;                 // items met in a run; a record that nothing reads
  std::array<TotalPageStamp, 3> stamps;  // by StampSlot
  [[nodiscard]] TotalPageStamp& Stamp(StampSlot slot) {
    return stamps[static_cast<std::size_t>(slot)];
  }
};

}  // namespace td
