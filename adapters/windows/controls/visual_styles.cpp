#include "windows/controls/visual_styles.h"

#include <memory>

// Needs the types of the system.
#include <commctrl.h>

namespace td {
namespace {

// The module that this code is linked into, which has the resource too.
HMODULE ThisModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<const wchar_t*>(&ThisModule), &module);
  return module;
}

// Invalid where the system has no such controls; the old ones do then.
HANDLE MakeStyles() {
  ACTCTXW wanted{};
  wanted.cbSize = sizeof wanted;
  wanted.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
  wanted.hModule = ThisModule();
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

WindowMaking::WindowMaking()
    : formerAwareness_(SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2)) {
  if (Styles() != INVALID_HANDLE_VALUE) ActivateActCtx(Styles(), &styles_);
  constexpr INITCOMMONCONTROLSEX kUsed{sizeof kUsed, ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  InitCommonControlsEx(&kUsed);
}

WindowMaking::~WindowMaking() {
  if (styles_ != 0) DeactivateActCtx(0, styles_);
  if (formerAwareness_ != nullptr) SetThreadDpiAwarenessContext(formerAwareness_);
}

}  // namespace td
