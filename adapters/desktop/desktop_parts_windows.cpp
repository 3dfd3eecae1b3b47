#include <utility>

#include "barcodes/barcode_settings.h"
#include "desktop/desktop_parts.h"
#include "windows/pictures/windows_picture_files.h"
#include "windows/printing/printers.h"
#include "windows/system/local_machine.h"
#include "windows/system/message_boxes.h"
#include "windows/system/native_windows.h"

namespace td {
namespace {

class WindowsParts : public DesktopParts {
 public:
  WindowsParts(const std::string& componentFolder, MessageMode mode, DocumentOutcome* outcome)
      : pictures_(componentFolder),
        messages_(mode, outcome),
        windows_({}, ReadBarcodeSettings(BarcodeSettingsFile()), messages_) {}

  Pictures& PictureFiles() override { return pictures_; }
  KeptMessages& MessagesOfCalls() override { return messages_; }
  Machine& ThisMachine() override { return machine_; }
  Windows& PrintWindows() override { return windows_; }
  void PutSettings(FrameSettings settings) override { windows_.PutSettings(std::move(settings)); }

 private:
  WindowsPictureFiles pictures_;
  MessageBoxes messages_;
  LocalMachine machine_;
  NativeWindows windows_;
};

}  // namespace

void PrepareDesktop() {}

std::unique_ptr<DesktopParts> MakeDesktopParts(const std::string& componentFolder, MessageMode mode,
                                               DocumentOutcome* outcome) {
  return std::make_unique<WindowsParts>(componentFolder, mode, outcome);
}

bool DesktopHasDisplay() {
  return HasVisibleDesktop();
}

bool DesktopHasPrinter(const std::string& name) {
  return HasPrinter(name);
}

}  // namespace td
