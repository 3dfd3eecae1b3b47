// The parts of a desktop, from what it has of each kind.
#pragma once

#include <string>
#include <utility>

#include "barcodes/barcode_settings.h"
#include "desktop/desktop_parts.h"

namespace td {

template <class PictureFilesOfDesktop, class MessagesOfDesktop, class MachineOfDesktop,
          class WindowsOfDesktop>
class DesktopPartsOf : public DesktopParts {
 public:
  DesktopPartsOf(const std::string& componentFolder, MessageMode mode, DocumentOutcome* outcome)
      : pictures_(componentFolder),
        messages_(mode, outcome),
        windows_({}, ReadBarcodeSettings(BarcodeSettingsFile()), messages_) {}

  Pictures& PictureFiles() override { return pictures_; }
  KeptMessages& MessagesOfCalls() override { return messages_; }
  Machine& ThisMachine() override { return machine_; }
  Windows& PrintWindows() override { return windows_; }
  void PutSettings(FrameSettings settings) override { windows_.PutSettings(std::move(settings)); }

 private:
  PictureFilesOfDesktop pictures_;
  MessagesOfDesktop messages_;
  MachineOfDesktop machine_;
  WindowsOfDesktop windows_;
};

}  // namespace td
