#include "run/do_printing.h"

#include "run/document.h"
#include "run/prepare_run.h"
#include "run/print_rows.h"
#include "run/run_window.h"
#include "text/conversions.h"

namespace td {
namespace {

void ReportRefusedPrinter(PrintWindow& window, Query& paper) {
  window.platform.messages.ShowBox(
      "找不到打印“" + ToText(paper.Field("FDevice")) + "”，将采用默认打印机！", kInformationIcon);
}

}  // namespace

void DoPrinting(PrintWindow& window) {
  LoadWindow(window);
  Query paper(window.platform.database, window.request);
  const Guard guard(window.kind.runReactions, [&] { ReportRefusedPrinter(window, paper); });
  RunRoutine(guard, window.platform.messages, [&](const Guard&) {
    PrintRun run{.window = window, .guard = guard, .paper = paper};
    if (!PrepareRun(run)) return;
    OpenDocument(run);
    if (window.kind.grouping == Grouping::kBill) {
      PrintRowsByBill(run);
    } else {
      PrintRowsByStockArea(run);
    }
    CloseDocument(run);
  });
}

}  // namespace td
