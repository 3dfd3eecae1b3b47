#include "run/run_window.h"

#include "policy/error_policy.h"
#include "state/print_window.h"
#include "store/query.h"
#include "store/statements.h"
#include "text/conversions.h"
#include "text/page_text.h"

namespace td {
namespace {

constexpr double kRowHeightAtLoad = 350;

void ReadComplexQtySetting(PrintWindow& window) {
  Query setting(window.platform, window.request);
  setting.Open(ComplexQtySettingStatement());
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

}  // namespace

void LoadWindow(PrintWindow& window) {
  if (window.isLoaded) return;
  window.isLoaded = true;

  window.state.RowHeight = kRowHeightAtLoad;
  const Guard guard(reactions::kIgnoreAll, {}, window.platform.witness);
  bool isSettingRead = false;
  guard.Step([&] {
    ReadComplexQtySetting(window);
    isSettingRead = true;
  });
  if (!isSettingRead && !window.kind.isLoadForgiving) return;
  window.state.IsFirstActivate = true;
  if (window.kind.clearsMargins) ClearMargins(window.vp, guard);
}

void SetRunBusy(PrintWindow& window, bool isBusy) {
  for (const char* key : {"print", "zoom", "exit"}) window.frame->EnableButton(key, !isBusy);
}

void WritePageText(PrintWindow& window) {
  window.frame->PutPageText(PageText(window.vp.PreviewPage(), window.vp.PageCount()));
}

}  // namespace td
