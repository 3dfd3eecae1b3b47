#include "desktop/desktop_parts_of.h"
#include "qt/pictures/qt_picture_files.h"
#include "qt/system/application.h"
#include "qt/system/local_machine.h"
#include "qt/system/message_boxes.h"
#include "qt/system/qt_windows.h"

namespace td {

// In front of all that paints.
void PrepareDesktop() {
  EnsureApplication();
}

std::unique_ptr<DesktopParts> MakeDesktopParts(const std::string& componentFolder, MessageMode mode,
                                               DocumentOutcome* outcome) {
  return std::make_unique<DesktopPartsOf<QtPictureFiles, MessageBoxes, LocalMachine, QtWindows>>(
      componentFolder, mode, outcome);
}

bool DesktopHasDisplay() {
  return HasWindowSystem();
}

}  // namespace td
