#include "desktop/desktop_platform.h"

#include <utility>

#include "barcodes/barcode_settings.h"
#include "desktop/databases.h"
#include "platform/failure.h"
#include "qt/pictures/qt_picture_files.h"
#include "qt/system/application.h"
#include "qt/system/device_failure.h"
#include "qt/system/local_machine.h"
#include "qt/system/message_boxes.h"
#include "qt/system/printers.h"
#include "qt/system/qt_windows.h"

namespace td {
namespace {

// In front of all that paints.
DesktopOptions Checked(DesktopOptions options) {
  EnsureApplication();
  if (!options.printer.empty() && !HasPrinter(options.printer)) {
    throw DeviceFailure(kInvalidProperty, "找不到打印机“" + options.printer + "”。");
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
  QtPictureFiles pictures;
  MessageBoxes messages;
  LocalMachine machine;
  QtWindows windows;
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
  return HasWindowSystem();
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
