// The machine around a page document, with the dialogs of Windows.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "print_calls/print_host.h"
#include "windows/api/windows_api.h"

namespace td {

class DesktopHost : public PrintHost {
 public:
  using PrintHost::PrintHost;

  // The window that shows the document, or none: dialogs open on it.
  void PutViewer(HWND window, Viewer viewer) {
    window_ = window;
    PrintHost::PutViewer(std::move(viewer));
  }

  void PageCompleted() override;

 protected:
  void PrintTo(PageDocument& document, bool withDialog, DocumentOutcome& outcome) override;
  std::optional<std::string> AskForPageSetup(PageDocument& document) override;

 private:
  HWND window_ = nullptr;
};

}  // namespace td
