// From the last row to the finished document.
#include "run/do_printing.h"
#include "run/print_run.h"

namespace td {

void RecordBillPages(PrintRun& run) {
  auto& pages = run.state.BillPages;
  run.guard.Step([&] {
    for (auto page = pages.size() + 1; page <= static_cast<std::size_t>(run.vp.PageCount());
         ++page) {
      pages.emplace(std::to_string(page) + "page", run.state.BillPageCount);
    }
  });
}

// A blank-row run ends on a form that is printed already: no filler rows, no band 4, no foot.
void FinishLastBill(PrintRun& run) {
  if (run.state.BlankRowsAtStart != 0) return;
  run.guard.Step([&] { FinishBill(run.window, !run.state.FooterPerPage); });
}

void FinishLastStockArea(PrintRun& run) {
  run.guard.Step([&] { FinishBill(run.window, true); });
}

void CloseDocument(PrintRun& run) {
  const Guard& guard = run.guard;
  RunState& state = run.state;
  PrintContext& context = run.context;
  PrintFrame& frame = *run.window.frame;

  run.kind.finishLastBill(run);
  if (run.kind.recordsBillPages) {
    RecordBillPages(run);
    state.BillPageCount = 1;
  }
  if (guard.Test([&] { return !frame.MemoText().empty(); })) {
    guard.Step([&] { run.vp.PutText("\r\n"); });
    guard.Step([&] { run.vp.PutRichText(frame.MemoTextRtf()); });
  }
  guard.Step([&] { run.vp.EndDoc(); });
  const Guard ignoring(reactions::kIgnoreAll);
  ignoring.Step([&] { context.PrintData->MoveFirst(); });
  guard.Step([&] { WritePageText(run.window); });
  guard.Step([&] { SetRunBusy(run.window, false); });
  guard.Step([&] { run.vp.PutMousePointer(1); });
  if (context.New_DoPrint) {
    context.PrintOk = true;
    guard.Step([&] { run.vp.PrintDoc(); });
  }
}

}  // namespace td
