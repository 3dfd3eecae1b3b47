#include "windows/toolbar.h"

#include "policy/error_policy.h"
#include "run/do_printing.h"
#include "run/run_window.h"
#include "state/print_window.h"
#include "windows/frm_adjuct.h"
#include "windows/page_setup.h"

namespace td {
namespace {

void SwitchZoom(PrintWindow& window) {
  constexpr double kFitting = 50;
  constexpr double kTrueSize = 100;
  window.vp.PutZoom(window.vp.Zoom() == kFitting ? kTrueSize : kFitting);
}

// Counts as printed whatever the user answered in the printer dialog.
void PrintWithDialog(PrintWindow& window) {
  window.vp.PrintDoc(true);
  window.request.PrintOk = true;
}

void SetUpPage(PrintWindow& window) {
  window.state.CurrentRowTop = 0;
  PageSetup(window);
}

// The document is not cleared first: a new one replaces it.
void FineTune(PrintWindow& window) {
  frmAdjuct dialog(window.platform, window.request);
  dialog.ShowModal();
  if (dialog.IsOk()) DoPrinting(window);
}

void CloseWindow(PrintWindow& window) {
  window.frame->Unload();
}

struct Button {
  std::string_view key;
  void (*press)(PrintWindow&);
};

constexpr Button kButtons[] = {
    {"previouspage", ShowPreviousPage},
    {"nextpage", ShowNextPage},
    {"zoom", SwitchZoom},
    {"pageset", SetUpPage},
    {"adjuct", FineTune},
    {"print", PrintWithDialog},
    {"exit", CloseWindow},
};

}  // namespace

void PressButton(PrintWindow& window, std::string_view key) {
  RunRoutine(Guard(reactions::kMessageOnly), window.platform.messages, [&](const Guard& guard) {
    for (const Button& button : kButtons) {
      if (button.key == key) guard.Step([&] { button.press(window); });
    }
  });
}

void ShowNextPage(PrintWindow& window) {
  const std::int16_t page = window.vp.PreviewPage();
  if (page < window.vp.PageCount()) {
    window.vp.PutPreviewPage(static_cast<std::int16_t>(page + 1));
  }
  WritePageText(window);
}

void ShowPreviousPage(PrintWindow& window) {
  const std::int16_t page = window.vp.PreviewPage();
  if (page != 1) window.vp.PutPreviewPage(static_cast<std::int16_t>(page - 1));
  WritePageText(window);
}

}  // namespace td
