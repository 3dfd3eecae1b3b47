#include <utility>

#include "barcodes/barcode_settings.h"
#include "desktop/desktop_parts.h"
#include "qt/pictures/qt_picture_files.h"
#include "qt/system/application.h"
#include "qt/system/local_machine.h"
#include "qt/system/message_boxes.h"
#include "qt/system/printers.h"
#include "qt/system/qt_windows.h"

namespace td {
namespace {

class QtParts : public DesktopParts {
 public:
  QtParts(const std::string& componentFolder, MessageMode mode, DocumentOutcome* outcome)
      : pictures_(componentFolder),
        messages_(mode, outcome),
        windows_({}, ReadBarcodeSettings(BarcodeSettingsFile()), messages_) {}

  Pictures& PictureFiles() override { return pictures_; }
  KeptMessages& MessagesOfCalls() override { return messages_; }
  Machine& ThisMachine() override { return machine_; }
  Windows& PrintWindows() override { return windows_; }
  void PutSettings(FrameSettings settings) override { windows_.PutSettings(std::move(settings)); }

 private:
  QtPictureFiles pictures_;
  MessageBoxes messages_;
  LocalMachine machine_;
  QtWindows windows_;
};

}  // namespace

// In front of all that paints.
void PrepareDesktop() {
  EnsureApplication();
}

std::unique_ptr<DesktopParts> MakeDesktopParts(const std::string& componentFolder, MessageMode mode,
                                               DocumentOutcome* outcome) {
  return std::make_unique<QtParts>(componentFolder, mode, outcome);
}

bool DesktopHasDisplay() {
  return HasWindowSystem();
}

bool DesktopHasPrinter(const std::string& name) {
  return HasPrinter(name);
}

}  // namespace td
