#include "platform/checked_counters.h"
#include "run/finish_bill.h"
#include "run/place_row.h"
#include "run/print_rows.h"
#include "text/conversions.h"

namespace td {
namespace {

void SkipBlankRows(PrintRun& run) {
  const Guard& guard = run.guard;
  RunState& state = run.state;
  PrintContext& request = run.request;
  while (request.PrintBlankRows != 0 && guard.Test([&] { return !request.PrintData->Eof(); })) {
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
  const Value& id = run.request.PrintData->Field("FInterID");
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
  guard.Step([&] { run.vp.NewPage(); });
  state.HeaderPerPage = headerPerPage;
  state.CurrentRowTop = -state.RowHeight;
  state.BillPageCount = 1;
}

// A bill number of 0 belongs to no bill.
void RememberBill(PrintRun& run) {
  const auto id = [&] { return ToLoneText(run.request.PrintData->Field("FInterID")); };
  if (run.guard.Test([&] { return id() == "0"; })) {
    run.state.CurrentInterId.clear();
  } else {
    run.guard.Step([&] { run.state.CurrentInterId = id(); });
  }
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

}  // namespace td
