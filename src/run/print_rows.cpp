#include "run/print_rows.h"

#include <cmath>
#include <string>

#include "items/draw_items.h"
#include "platform/checked_counters.h"
#include "platform/standard_failures.h"
#include "run/finish_bill.h"
#include "run/row_sums.h"
#include "text/characters.h"
#include "text/conversions.h"

namespace td {
namespace {

// What both walks do.

bool CloneStandsOnBill(const PrintRun& run) {
  const Value& parked = ReadColumn(run.witness, *run.request.PrintDataClone, "FInterID");
  const Value& current = run.Data("FInterID");
  return !IsNull(parked) && !IsNull(current) && ToText(parked) == ToText(current);
}

// Moves the parked clone forward to the bill of the current row.
void MoveCloneToBill(PrintRun& run) {
  while (run.guard.Test([&] { return !CloneStandsOnBill(run); })) {
    run.guard.Step([&] { run.request.PrintDataClone->MoveNext(); });
  }
}

// Draws the current row and moves to the next; goes to a new page if this one is full and more rows
// follow.
void PlaceRow(PrintRun& run) {
  const Guard& guard = run.guard;
  RunState& state = run.state;
  PrintContext& request = run.request;

  if (run.witness != nullptr) run.witness->RowBegins(state.OrderId);
  state.CurrentRowTop += state.RowHeight;
  state.Site4Pending = true;
  AddRowToSums(run);
  guard.Step([&] { DrawItems(run.window, ItemSite::kRow); });
  guard.Step([&] { AddChecked(state.OrderId, 1); });
  guard.Step([&] { AddChecked(state.RowsOnPage, 1); });
  const bool isPageFull = state.RowsOnPage == state.RowsPerPage;
  if (isPageFull) {
    guard.Step([&] { DrawItems(run.window, ItemSite::kAfterRows); });
    state.Site4Pending = false;
  }
  guard.Step([&] { request.PrintData->MoveNext(); });

  // Asked before the new page is made, so that no empty last page arises.
  if (!isPageFull || guard.Test([&] { return request.PrintData->Eof(); })) return;
  guard.Step([&] { run.vp.NewPage(); });
  state.CurrentRowTop = -state.RowHeight;
  state.RowsOnPage = 0;
}

// By bill.

void SkipBlankRows(PrintRun& run) {
  const Guard& guard = run.guard;
  RunState& state = run.state;
  PrintContext& request = run.request;
  while (request.PrintBlankRows != 0 && guard.Test([&] { return !request.PrintData->Eof(); })) {
    if (run.witness != nullptr) run.witness->RowIsSkipped();
    state.CurrentRowTop += state.RowHeight;
    guard.Step([&] { AddChecked(request.PrintBlankRows, -1); });
    guard.Step([&] { request.PrintData->MoveNext(); });
    guard.Step([&] { AddChecked(state.OrderId, 1); });
    guard.Step([&] { AddChecked(state.RowsOnPage, 1); });
  }
}

// Asked of every row. It can hold only when the blank rows are exactly one page: the rows then
// start at the top again, while RowsOnPage goes on and never finds the page full.
bool BlankRowsFilledPage(const PrintRun& run) {
  if (run.blankRowsDue <= 0 || run.state.RowsOnPage % run.blankRowsDue != 0) return false;
  if (run.state.RowsPerPage == 0) throw DivisionByZeroFailure();
  return run.blankRowsDue % run.state.RowsPerPage == 0;
}

bool IsNewBill(const PrintRun& run) {
  const Value& id = run.Data("FInterID");
  return !IsNull(id) && ToText(id) != run.state.CurrentInterId && !run.state.CurrentInterId.empty();
}

void BreakBill(PrintRun& run) {
  const Guard& guard = run.guard;
  RunState& state = run.state;
  guard.Step([&] { FinishBill(run.window, !state.FooterPerPage); });
  MoveCloneToBill(run);
  // The first page of every bill has its head, also in a format that prints it only once.
  const bool headerPerPage = state.HeaderPerPage;
  state.HeaderPerPage = true;
  RecordBillPages(run);
  state.PageOfBill = 0;
  if (run.witness != nullptr) run.witness->GroupBreaks();
  guard.Step([&] { run.vp.NewPage(); });
  state.HeaderPerPage = headerPerPage;
  state.CurrentRowTop = -state.RowHeight;
  state.BillPageCount = 1;
}

// A bill number of 0 belongs to no bill.
void RememberBill(PrintRun& run) {
  const auto id = [&] { return ToLoneText(run.Data("FInterID")); };
  if (run.guard.Test([&] { return id() == "0"; })) {
    run.state.CurrentInterId.clear();
  } else {
    run.guard.Step([&] { run.state.CurrentInterId = id(); });
  }
}

// By stock area.

std::string AreaOf(const std::string& stockArea) {
  return std::string(FirstCharacter(stockArea));
}

bool IsNewArea(const PrintRun& run) {
  const Value& area = run.Data("FStockArea");
  const RunState& state = run.state;
  return !IsNull(area) && AreaOf(ToText(area)) != state.CurrentArea && state.CurrentArea != "-1" &&
         state.RowsOnPage != 0;
}

// The page of a new area has only what the new-page event draws: the head is not forced.
void BreakArea(PrintRun& run) {
  const Guard& guard = run.guard;
  guard.Step([&] { FinishBill(run.window, false); });
  MoveCloneToBill(run);
  if (run.witness != nullptr) run.witness->GroupBreaks();
  guard.Step([&] { run.vp.NewPage(); });
  run.state.CurrentRowTop = -run.state.RowHeight;
}

std::int32_t WholeNumber(const Value& value) {
  if (!IsNull(value) && ToDouble(value) != std::trunc(ToDouble(value))) throw MismatchFailure();
  return ToInteger32(value);
}

void RememberArea(PrintRun& run) {
  const Guard& guard = run.guard;
  guard.Step([&] { run.state.CurrentArea = AreaOf(ToLoneText(run.Data("FStockArea"))); });
  guard.Step([&] { run.state.RowInterId = WholeNumber(run.Data("FInterID")); });
}

}  // namespace

void PrintRowsByBill(PrintRun& run) {
  const Guard& guard = run.guard;
  RunState& state = run.state;
  PrintContext& request = run.request;

  while (guard.Test([&] { return !request.PrintData->Eof(); })) {
    SkipBlankRows(run);
    if (guard.Test([&] { return BlankRowsFilledPage(run); })) {
      state.CurrentRowTop = -state.RowHeight;
    }
    if (guard.Test([&] { return request.PrintData->Eof(); })) return;
    if (guard.Test([&] { return IsNewBill(run); })) BreakBill(run);
    RememberBill(run);
    PlaceRow(run);
  }
}

void PrintRowsByStockArea(PrintRun& run) {
  const Guard& guard = run.guard;
  while (guard.Test([&] { return !run.request.PrintData->Eof(); })) {
    if (guard.Test([&] { return IsNewArea(run); })) BreakArea(run);
    RememberArea(run);
    PlaceRow(run);
  }
}

}  // namespace td
