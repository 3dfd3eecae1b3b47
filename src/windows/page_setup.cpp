#include "windows/page_setup.h"

#include "run/do_printing.h"
#include "state/print_window.h"
#include "store/statements.h"

namespace td {
namespace {

PageSettings ReadPageSettings(PrintSurface& vp) {
  return {.MarginLeft = vp.MarginLeft(),
          .MarginTop = vp.MarginTop(),
          .MarginRight = vp.MarginRight(),
          .MarginBottom = vp.MarginBottom(),
          .Orientation = vp.Orientation(),
          .PaperSize = vp.PaperSize(),
          .PaperWidth = vp.PaperWidth(),
          .PaperHeight = vp.PaperHeight(),
          .Device = vp.Device()};
}

void SavePageSettings(Platform& platform, const PrintContext& request,
                      const PageSettings& settings) {
  const auto connection = platform.database.Connect(request.New_PromptString);
  Machine& machine = platform.machine;
  connection->Execute(SaveFormatPaperStatement(request, settings));
  connection->Execute(ClearMachinePaperStatement(machine.LocalMachineId(), request.TDBillName));
  connection->Execute(
      SaveMachinePaperStatement(machine.LocalMachineId(), request.TDBillName, settings));
}

}  // namespace

void PageSetup(PrintWindow& window) {
  if (window.vp.ShowPageSetup(kPageSetupDialog) == 0) return;
  SavePageSettings(window.platform, window.request, ReadPageSettings(window.vp));
  window.vp.ClearDoc();
  DoPrinting(window);
}

}  // namespace td
