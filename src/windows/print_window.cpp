#include "windows/print_window.h"

#include "run/do_printing.h"
#include "run/page_events.h"
#include "store/error_policy.h"
#include "store/query.h"
#include "store/statements.h"
#include "text/conversions.h"
#include "windows/page_text.h"
#include "windows/toolbar.h"

namespace td {
namespace {

constexpr double kRowHeightAtLoad = 350;

void ReadComplexQtySetting(PrintWindow& window) {
  Query setting;
  setting.Open(window.platform, ComplexQtySettingStatement());
  if (!setting.Eof() && ToText(setting.Field("FValue")) == "1") {
    window.state.MustShowComplexQty = true;
  }
}

void ClearMargins(PrintSurface& vp, const Guard& guard) {
  guard.Step([&] { vp.PutMarginLeft(0); });
  guard.Step([&] { vp.PutMarginBottom(0); });
  guard.Step([&] { vp.PutMarginRight(0); });
  guard.Step([&] { vp.PutMarginTop(0); });
}

void ReadAdvertisingSetting(PrintWindow& window) {
  window.state.PrintAdvertising = "-1";
  Query setting;
  setting.Open(window.platform, AdvertisingSettingStatement());
  if (!setting.Eof()) window.state.PrintAdvertising = ToLoneText(setting.Field("FValue"));
  setting.Close();
}

}  // namespace

PrintWindow::PrintWindow(Platform& usedPlatform, const WindowKind& usedKind)
    : platform(usedPlatform),
      kind(usedKind),
      frame(platform.windows.CreatePrintFrame(kind.name)),
      vp(frame->Surface()) {
  frame->Connect({.Load = [this] { LoadWindow(*this); },
                  .Activate = [this] { ActivateWindow(*this); },
                  .ButtonPressed = [this](std::string_view key) { PressButton(*this, key); }});
  vp.Connect({.OnNewPage = [this] { OnNewPage(*this); },
              .OnEndPage = [this] { OnEndPage(*this); },
              .OnEndDoc = [this] { OnEndDoc(*this); }});
}

void LoadWindow(PrintWindow& window) {
  if (window.isLoaded) return;
  window.isLoaded = true;

  window.state.RowHeight = kRowHeightAtLoad;
  const Guard guard(reactions::kIgnoreAll);
  bool isSettingRead = false;
  guard.Step([&] {
    ReadComplexQtySetting(window);
    isSettingRead = true;
  });
  if (!isSettingRead && !window.kind.isLoadForgiving) return;
  window.state.IsFirstActivate = true;
  if (window.kind.clearsMargins) ClearMargins(window.vp, guard);
}

void ActivateWindow(PrintWindow& window) {
  RunState& state = window.state;
  if (!state.IsFirstActivate) return;
  state.IsFirstActivate = false;

  if (window.kind.readsAdvertising) ReadAdvertisingSetting(window);
  DoPrinting(window);
}

void SetRunBusy(PrintWindow& window, bool isBusy) {
  for (const char* key : {"print", "zoom", "exit"}) window.frame->EnableButton(key, !isBusy);
}

void WritePageText(PrintWindow& window) {
  window.frame->PutPageText(PageText(window.vp.PreviewPage(), window.vp.PageCount()));
}

}  // namespace td
