#include "windows/controls/visual_styles.h"

#include <memory>

#include "windows/api/modules.h"

// Needs the types of the system.
#include <commctrl.h>

namespace td {
namespace {

// Invalid where the system has no such controls; the old ones do then.
HANDLE MakeStyles() {
  ACTCTXW wanted{};
  wanted.cbSize = sizeof wanted;
  wanted.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
  wanted.hModule = OwnModule();
  wanted.lpResourceName = MAKEINTRESOURCEW(2);  // ISOLATIONAWARE_MANIFEST_RESOURCE_ID
  return CreateActCtxW(&wanted);
}

struct StylesCloser {
  using pointer = HANDLE;
  void operator()(HANDLE styles) const {
    if (styles != INVALID_HANDLE_VALUE) ReleaseActCtx(styles);
  }
};

// Kept as long as the module.
HANDLE Styles() {
  static const std::unique_ptr<HANDLE, StylesCloser> styles(MakeStyles());
  return styles.get();
}

}  // namespace

WindowMaking::WindowMaking() {
  if (Styles() != INVALID_HANDLE_VALUE) ActivateActCtx(Styles(), &styles_);
  constexpr INITCOMMONCONTROLSEX kUsed{sizeof kUsed, ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  InitCommonControlsEx(&kUsed);
}

WindowMaking::~WindowMaking() {
  if (styles_ != 0) DeactivateActCtx(0, styles_);
}

}  // namespace td
