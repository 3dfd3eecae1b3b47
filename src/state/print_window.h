// The print window: the frame with its surface, the request that it serves, the state of its runs.
#pragma once

#include <memory>

#include "platform/platform.h"
#include "state/print_context.h"
#include "state/run_state.h"
#include "state/window_kind.h"

namespace td {

// `Image1`: carries a goods picture from LoadGoodsPicture to the drawing.
struct PictureHolder {
  float Width = 0;
  float Height = 0;
  PictureRef Picture;
};

// Shown modally it is the preview; in a silent print it exists and is never shown. The platform,
// the request and the kind are borrowed and outlive the window.
struct PrintWindow {
  PrintWindow(Platform& usedPlatform, PrintContext& servedRequest, const WindowKind& usedKind)
      : platform(usedPlatform),
        request(servedRequest),
        kind(usedKind),
        frame(platform.windows.CreatePrintFrame(kind.name)),
        vp(frame->Surface()) {}
  PrintWindow(const PrintWindow&) = delete;
  PrintWindow& operator=(const PrintWindow&) = delete;
  ~PrintWindow() = default;

  Platform& platform;
  PrintContext& request;
  const WindowKind& kind;
  std::unique_ptr<PrintFrame> frame;
  PrintSurface& vp;
  PictureHolder Image1;
  RunState state;
  bool isLoaded = false;
};

}  // namespace td
