#include "run/do_printing.h"

#include "run/print_run.h"
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
  Query paper;
  const Guard guard(window.kind.runReactions, [&] { ReportRefusedPrinter(window, paper); });
  RunRoutine(guard, window.platform.messages, [&](const Guard&) {
    PrintRun run{.window = window, .guard = guard, .paper = paper};
    if (!PrepareRun(run)) return;
    OpenDocument(run);
    window.kind.printRows(run);
    CloseDocument(run);
  });
}

}  // namespace td
