#include "designer/window/designer.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <QTranslator>

#include "barcodes/barcode_settings.h"
#include "designer/view/words.h"
#include "designer/window/connection_dialog.h"
#include "designer/window/designer_window.h"
#include "desktop/databases.h"
#include "desktop/desktop_platform.h"
#include "page_outputs/export_folder.h"
#include "platform/failure.h"
#include "qt/system/printers.h"

namespace td::designer {
namespace {

// The component's own windows speak Chinese everywhere, and the application with them; this one
// speaks the desktop's language, as do the file dialogs that it opens.
void UseLanguageOfDesktop() {
  if (SpeaksChinese()) return;
  for (QTranslator* translator : QCoreApplication::instance()->findChildren<QTranslator*>()) {
    QCoreApplication::removeTranslator(translator);
  }
}

void RunUntilClosed(DesignerWindow& window) {
  QEventLoop loop;
  window.PutClosed([&loop] { loop.quit(); });
  window.show();
  window.activateWindow();
  // When the window has found its size.
  QTimer::singleShot(0, &window, [&window] { window.Sheet().FitWidth(); });
  loop.exec();
}

}  // namespace

bool ShowDesigner(const DesignRequest& request) {
  DesktopOptions options;
  options.componentFolder = request.componentFolder;
  DesktopPlatform desktop(std::move(options));
  if (!desktop.HasDisplay()) {
    throw Failure(kInvalidCall, Say("there is no display").toStdString());
  }
  UseLanguageOfDesktop();
  Databases databases;
  std::string connection = request.connection;
  int billType = request.billType.value_or(0);
  if (connection.empty()) {
    const auto chosen = AskForConnection(databases, DefaultStateFolder());
    if (!chosen) return false;
    connection = chosen->connection;
    billType = request.billType.value_or(chosen->billType);
  } else {
    databases.Connect(connection);
  }
  DesignerWindow window({.database = databases,
                         .platform = desktop.Get(),
                         .connection = connection,
                         .billType = billType,
                         .data = request.data,
                         .stateFolder = DefaultStateFolder(),
                         .barcodes = ReadBarcodeSettings(BarcodeSettingsFile()),
                         .printers = PrinterNames()});
  if (!window.Open(request.format)) return false;
  RunUntilClosed(window);
  return true;
}

}  // namespace td::designer
