// The print window: the frame that owns a surface and the state of its runs.
#pragma once

#include <memory>
#include <string_view>

#include "platform/platform.h"
#include "service/run_state.h"
#include "windows/window_kind.h"

namespace td {

// `Image1`: carries a goods picture from LoadGoodsPicture to the drawing.
struct PictureHolder {
  float Width = 0;
  float Height = 0;
  PictureRef Picture;
};

// Shown modally it is the preview; in a silent print it exists and is never shown.
struct PrintWindow {
  PrintWindow(Platform& usedPlatform, const WindowKind& usedKind);
  PrintWindow(const PrintWindow&) = delete;
  PrintWindow& operator=(const PrintWindow&) = delete;
  ~PrintWindow() = default;

  Platform& platform;
  const WindowKind& kind;
  std::unique_ptr<PrintFrame> frame;
  PrintSurface& vp;
  PictureHolder Image1;
  RunState state;
  bool isLoaded = false;
};

// Loads the window if that has not happened: row height, settings, margins. Shows no errors.
void LoadWindow(PrintWindow& window);

// Starts the run at the first activation and does nothing at later ones. It has no handler: an
// error in its query reaches the caller.
void ActivateWindow(PrintWindow& window);

// The switch for a run in progress: print, zoom and exit can't be pressed meanwhile.
void SetRunBusy(PrintWindow& window, bool isBusy);

// Writes the page that is shown and the count of pages into the page text box.
void WritePageText(PrintWindow& window);

}  // namespace td
