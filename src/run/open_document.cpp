// From the prepared run to the first page with its head.
#include "items/draw_items.h"
#include "items/draw_page_header.h"
#include "platform/checked_counters.h"
#include "run/print_run.h"

namespace td {
namespace {

// Blank rows that fill whole pages are passed over with no page made for them.
void SkipBlankPages(PrintRun& run) {
  const Guard& guard = run.guard;
  PrintContext& context = run.context;
  if (context.PrintBlankRows <= run.state.RowsPerPage) return;

  std::int32_t rows = 0;
  guard.Step([&] {
    if (run.state.RowsPerPage == 0) throw DivisionByZeroFailure();
    rows = context.PrintBlankRows / run.state.RowsPerPage * run.state.RowsPerPage;
  });
  for (std::int32_t row = 0; row < rows; ++row) {
    if (guard.Test([&] { return context.PrintData->Eof(); })) break;
    guard.Step([&] { context.PrintData->MoveNext(); });
  }
  guard.Step([&] { AddChecked(context.PrintBlankRows, -rows); });
}

}  // namespace

void OpenDocument(PrintRun& run) {
  const Guard& guard = run.guard;
  RunState& state = run.state;

  if (run.kind.knowsBlankRows) {
    SkipBlankPages(run);
    // Between the skip and StartDoc nothing changes the count; the walk then counts it down.
    run.blankRowsDue = run.context.PrintBlankRows;
  }
  state.IsBodyStarted = false;
  state.AdjustRowsOnce = true;
  if (run.kind.writesExportFile) {
    guard.Step([&] { run.vp.PutExportFormat(1); });
    guard.Step([&] { run.vp.PutExportFile("c:\\订单.html"); });
  }
  guard.Step([&] { run.vp.StartDoc(); });
  if (!state.HeaderPerPage && run.blankRowsDue < 1) {
    guard.Step([&] { DrawPageHeader(run.window, 1); });
  }
  if (run.blankRowsDue == 0) guard.Step([&] { DrawItems(run.window, 2, ""); });
  state.IsBodyStarted = true;
  state.CurrentRowTop = -state.RowHeight;
  state.OrderId = 1;
}

}  // namespace td
