#include "desktop/desktop_parts_of.h"
#include "windows/pictures/windows_picture_files.h"
#include "windows/system/local_machine.h"
#include "windows/system/message_boxes.h"
#include "windows/system/native_windows.h"

namespace td {

void PrepareDesktop() {}

std::unique_ptr<DesktopParts> MakeDesktopParts(const std::string& componentFolder, MessageMode mode,
                                               DocumentOutcome* outcome) {
  return std::make_unique<
      DesktopPartsOf<WindowsPictureFiles, MessageBoxes, LocalMachine, NativeWindows>>(
      componentFolder, mode, outcome);
}

bool DesktopHasDisplay() {
  return HasVisibleDesktop();
}

}  // namespace td
