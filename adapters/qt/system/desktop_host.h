// The machine around a page document, with the dialogs of Qt.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "print_calls/print_host.h"

class QWidget;

namespace td {

class DesktopHost : public PrintHost {
 public:
  using PrintHost::PrintHost;

  // The window that shows the document, or none: dialogs open on it.
  void PutViewer(QWidget* window, Viewer viewer) {
    window_ = window;
    PrintHost::PutViewer(std::move(viewer));
  }

 protected:
  void PrintTo(PageDocument& document, bool withDialog, DocumentOutcome& outcome) override;
  std::optional<std::string> AskForPageSetup(PageDocument& document) override;

 private:
  QWidget* window_ = nullptr;
};

}  // namespace td
