#include "windows/page_setup.h"

#include "run/do_printing.h"
#include "service/print_context.h"
#include "store/statements.h"
#include "windows/print_window.h"

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

void SavePageSettings(Platform& platform, const PageSettings& settings) {
  const PrintContext& context = Context();
  const auto connection = platform.database.Connect(context.New_PromptString);
  connection->Execute(SaveFormatPaperStatement(context, settings));
  connection->Execute(
      ClearMachinePaperStatement(platform.machine.LocalMachineId(), context.TDBillName));
  connection->Execute(
      SaveMachinePaperStatement(platform.machine.LocalMachineId(), context.TDBillName, settings));
}

}  // namespace

void PageSetup(PrintWindow& window) {
  if (window.vp.ShowPageSetup(1) == 0) return;
  SavePageSettings(window.platform, ReadPageSettings(window.vp));
  window.vp.ClearDoc();
  DoPrinting(window);
}

}  // namespace td
