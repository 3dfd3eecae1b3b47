#include "run/document.h"

#include "items/draw_items.h"
#include "items/draw_page_header.h"
#include "platform/checked_counters.h"
#include "run/finish_bill.h"
#include "run/run_window.h"

namespace td {
namespace {

// Blank rows that fill whole pages are passed over with no page made for them.
void SkipBlankPages(PrintRun& run) {
  const Guard& guard = run.guard;
  PrintContext& request = run.request;
  if (request.PrintBlankRows <= run.state.RowsPerPage) return;

  std::int32_t rows = 0;
  guard.Step([&] {
    if (run.state.RowsPerPage == 0) throw DivisionByZeroFailure();
    rows = request.PrintBlankRows / run.state.RowsPerPage * run.state.RowsPerPage;
  });
  for (std::int32_t row = 0; row < rows; ++row) {
    if (guard.Test([&] { return request.PrintData->Eof(); })) break;
    if (run.witness != nullptr) run.witness->RowIsSkipped();
    guard.Step([&] { request.PrintData->MoveNext(); });
  }
  guard.Step([&] { AddChecked(request.PrintBlankRows, -rows); });
}

}  // namespace

void OpenDocument(PrintRun& run) {
  const Guard& guard = run.guard;
  RunState& state = run.state;

  if (run.kind.knowsBlankRows) {
    SkipBlankPages(run);
    // Between the skip and StartDoc nothing changes the count; the walk then counts it down.
    run.blankRowsDue = run.request.PrintBlankRows;
  }
  state.IsBodyStarted = false;
  state.AdjustRowsOnce = true;
  if (run.kind.writesExportFile) {
    guard.Step([&] { run.vp.PutExportFormat(kExportHtml); });
    guard.Step([&] { run.vp.PutExportFile("c:\\订单.html"); });
  }
  guard.Step([&] { run.vp.StartDoc(); });
  if (!state.HeaderPerPage && run.blankRowsDue < 1) {
    guard.Step([&] { DrawPageHeader(run.window); });
  }
  if (run.blankRowsDue == 0) guard.Step([&] { DrawItems(run.window, ItemSite::kColumnHead); });
  state.IsBodyStarted = true;
  state.CurrentRowTop = -state.RowHeight;
  state.OrderId = 1;
}

void CloseDocument(PrintRun& run) {
  const Guard& guard = run.guard;
  RunState& state = run.state;
  PrintContext& request = run.request;
  PrintFrame& frame = *run.window.frame;

  FinishLastGroup(run);
  if (run.kind.recordsBillPages) {
    RecordBillPages(run);
    state.BillPageCount = 1;
  }
  if (guard.Test([&] { return !frame.MemoText().empty(); })) {
    guard.Step([&] { run.vp.PutText("\r\n"); });
    guard.Step([&] { run.vp.PutRichText(frame.MemoTextRtf()); });
  }
  guard.Step([&] { run.vp.EndDoc(); });
  const Guard ignoring(reactions::kIgnoreAll, {}, run.witness);
  ignoring.Step([&] { request.PrintData->MoveFirst(); });
  guard.Step([&] { WritePageText(run.window); });
  guard.Step([&] { SetRunBusy(run.window, false); });
  guard.Step([&] { run.vp.PutMousePointer(kArrowPointer); });
  if (request.New_DoPrint) {
    request.PrintOk = true;
    guard.Step([&] { run.vp.PrintDoc(); });
  }
}

}  // namespace td
