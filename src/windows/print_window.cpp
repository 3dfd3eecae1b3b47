#include "windows/print_window.h"

#include "run/do_printing.h"
#include "run/page_events.h"
#include "store/error_policy.h"
#include "store/query.h"
#include "store/statements.h"
#include "text/conversions.h"
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

}  // namespace

PrintWindow::PrintWindow(Platform& usedPlatform)
    : platform(usedPlatform),
      frame(platform.windows.CreatePrintFrame("frmTdPrint")),
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
  guard.Step([&] { ReadComplexQtySetting(window); });
  window.state.IsFirstActivate = true;
  guard.Step([&] { window.vp.PutMarginLeft(0); });
  guard.Step([&] { window.vp.PutMarginBottom(0); });
  guard.Step([&] { window.vp.PutMarginRight(0); });
  guard.Step([&] { window.vp.PutMarginTop(0); });
}

void ActivateWindow(PrintWindow& window) {
  RunState& state = window.state;
  if (!state.IsFirstActivate) return;
  state.IsFirstActivate = false;

  state.PrintAdvertising = "-1";
  Query setting;
  setting.Open(window.platform, AdvertisingSettingStatement());
  if (!setting.Eof()) state.PrintAdvertising = ToLoneText(setting.Field("FValue"));
  setting.Close();

  DoPrinting(window);
}

void SetRunBusy(PrintWindow& window, bool isBusy) {
  for (const char* key : {"print", "zoom", "exit"}) window.frame->EnableButton(key, !isBusy);
}

void WritePageText(PrintWindow& window) {
  window.frame->PutPageText("第" + ToText(window.vp.PreviewPage()) + "页   共" +
                            ToText(window.vp.PageCount()) + "页");
}

}  // namespace td
