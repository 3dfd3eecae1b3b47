// What each desktop has of its own: windows, messages, pictures, printers.
#pragma once

#include <memory>
#include <string>

#include "platform/platform.h"
#include "print_calls/frame_settings.h"
#include "print_calls/kept_messages.h"

namespace td {

class DesktopParts {
 public:
  virtual ~DesktopParts() = default;

  // All are good as long as this object lives.
  [[nodiscard]] virtual Pictures& PictureFiles() = 0;
  [[nodiscard]] virtual KeptMessages& MessagesOfCalls() = 0;
  [[nodiscard]] virtual Machine& ThisMachine() = 0;
  [[nodiscard]] virtual Windows& PrintWindows() = 0;

  // For the windows that are made from now on.
  virtual void PutSettings(FrameSettings settings) = 0;
};

// Before anything else of a desktop is used. Fails as DesktopPlatform does.
void PrepareDesktop();

// The folder is that of DesktopOptions; `outcome` outlives the parts.
[[nodiscard]] std::unique_ptr<DesktopParts> MakeDesktopParts(const std::string& componentFolder,
                                                             MessageMode mode,
                                                             DocumentOutcome* outcome);

// As DesktopPlatform::HasDisplay.
[[nodiscard]] bool DesktopHasDisplay();

}  // namespace td
