// The walk over the rows of the plain run. A page holds a fixed number of equally high rows, so
// rows are counted and one vertical offset moves; nothing is measured. The page events change the
// state inside NewPage.
#include "platform/checked_counters.h"
#include "run/do_printing.h"
#include "run/print_run.h"
#include "text/conversions.h"

namespace td {
namespace {

void SkipBlankRows(PrintRun& run) {
  const Guard& guard = run.guard;
  RunState& state = run.state;
  PrintContext& context = run.context;
  while (context.PrintBlankRows != 0 && guard.Test([&] { return !context.PrintData->Eof(); })) {
    state.CurrentRowTop += state.RowHeight;
    guard.Step([&] { AddChecked(context.PrintBlankRows, -1); });
    guard.Step([&] { context.PrintData->MoveNext(); });
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
  const Value& id = run.context.PrintData->Field("FInterID");
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
  const auto id = [&] { return ToLoneText(run.context.PrintData->Field("FInterID")); };
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
  PrintContext& context = run.context;

  while (guard.Test([&] { return !context.PrintData->Eof(); })) {
    SkipBlankRows(run);
    if (guard.Test([&] { return BlankRowsFilledPage(run); })) {
      state.CurrentRowTop = -state.RowHeight;
    }
    if (guard.Test([&] { return context.PrintData->Eof(); })) return;
    if (guard.Test([&] { return IsNewBill(run); })) BreakBill(run);
    RememberBill(run);
    PlaceRow(run);
  }
}

}  // namespace td
