#include <utility>

#include "barcodes/barcode_settings.h"
#include "desktop/databases.h"
#include "desktop/desktop_platform.h"
#include "platform/standard_failures.h"
#include "windows/pictures/windows_picture_files.h"
#include "windows/printing/printers.h"
#include "windows/system/hidden_windows.h"
#include "windows/system/local_machine.h"
#include "windows/system/message_boxes.h"

namespace td {
namespace {

DesktopOptions Checked(DesktopOptions options) {
  if (!options.printer.empty() && !HasPrinter(options.printer)) {
    throw Failure(kInvalidProperty,
                  WithoutLockCharacter("找不到打印机“" + options.printer + "”。"));
  }
  return options;
}

}  // namespace

struct DesktopPlatform::Parts {
  explicit Parts(DesktopOptions options)
      : pictures(options.componentFolder),
        messages(options.messages == MessageMode::kAutomatic, &outcome),
        windows({std::move(options.printer), std::move(options.stateDirectory),
                 std::move(options.documentSink), std::move(options.onPage),
                 std::move(options.onPrinted), std::move(options.onComplaint), &outcome},
                ReadBarcodeSettings(BarcodeSettingsFile()), messages) {}

  Databases databases;
  DocumentOutcome outcome;
  WindowsPictureFiles pictures;
  MessageBoxes messages;
  LocalMachine machine;
  HiddenWindows windows;
  Platform platform{databases, pictures, messages, machine, windows};
};

DesktopPlatform::DesktopPlatform(DesktopOptions options)
    : parts_(std::make_unique<Parts>(Checked(std::move(options)))) {}

DesktopPlatform::~DesktopPlatform() = default;

Platform& DesktopPlatform::Get() {
  return parts_->platform;
}

RecordsetRef DesktopPlatform::OpenReadOnly(const std::string& connection, const std::string& sql) {
  return parts_->databases.OpenReadOnly(connection, sql);
}

bool DesktopPlatform::HasDisplay() const {
  return HasVisibleDesktop();
}

bool DesktopPlatform::HasPrinter(const std::string& name) const {
  return td::HasPrinter(name);
}

DocumentOutcome DesktopPlatform::LastDocument() const {
  return parts_->outcome;
}

int DesktopPlatform::MessagesShown() const {
  return parts_->messages.Shown();
}

}  // namespace td
