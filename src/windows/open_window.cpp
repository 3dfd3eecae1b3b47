#include "windows/open_window.h"

#include "run/do_printing.h"
#include "run/page_events.h"
#include "run/run_window.h"
#include "store/query.h"
#include "store/statements.h"
#include "text/conversions.h"
#include "windows/toolbar.h"

namespace td {
namespace {

void ReadAdvertisingSetting(PrintWindow& window) {
  window.state.PrintAdvertising = "-1";
  Query setting(window.platform, window.request);
  setting.Open(AdvertisingSettingStatement());
  if (!setting.Eof()) window.state.PrintAdvertising = ToLoneText(setting.Field("FValue"));
  setting.Close();
}

// Starts the run at the first activation and does nothing at later ones. It has no handler: an
// error in its query reaches the caller.
void ActivateWindow(PrintWindow& window) {
  RunState& state = window.state;
  if (!state.IsFirstActivate) return;
  state.IsFirstActivate = false;

  if (window.kind.readsAdvertising) ReadAdvertisingSetting(window);
  DoPrinting(window);
}

}  // namespace

std::unique_ptr<PrintWindow> OpenWindow(Platform& platform, PrintContext& request,
                                        const WindowKind& kind) {
  auto opened = std::make_unique<PrintWindow>(platform, request, kind);
  PrintWindow& window = *opened;
  window.frame->Connect(
      {.Load = [&window] { LoadWindow(window); },
       .Activate = [&window] { ActivateWindow(window); },
       .ButtonPressed = [&window](std::string_view key) { PressButton(window, key); }});
  window.vp.Connect({.OnNewPage = [&window] { OnNewPage(window); },
                     .OnEndPage = [&window] { OnEndPage(window); },
                     .OnEndDoc = [&window] { OnEndDoc(window); }});
  return opened;
}

}  // namespace td
