// The machine around a page document: its printers, its dialogs and its export file.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "page_document/document_host.h"
#include "platform/platform.h"
#include "print_calls/delivery.h"
#include "print_calls/frame_settings.h"

class QWidget;

namespace td {

class DesktopHost : public DocumentHost {
 public:
  // Both outlive the host.
  DesktopHost(const FrameSettings& settings, Messages& messages)
      : settings_(settings), messages_(messages) {}

  // The window that shows the document, or none: dialogs open on it, and it hears of changes.
  struct Viewer {
    QWidget* window = nullptr;
    std::function<void()> previewChanged;
    std::function<void(std::int32_t shape)> pointerChanged;
  };
  void PutViewer(Viewer viewer) { viewer_ = std::move(viewer); }

  std::vector<std::string> Devices() override;
  std::string DefaultDevice() override;
  bool HasDevice(const std::string& name) override;
  // That of the printer in the settings, if they name one.
  std::optional<PaperExtent> DefaultSheet() override;

  double LineHeight(const TextLine& line) override;
  double LineWidth(const TextLine& line) override;

  // One job for each run of pages on the same sheet. Fails with kDeviceIo when the machine has no
  // printer, and with kInvalidCall when a dialog is asked for and none can be shown.
  void Print(PageDocument& document, bool withDialog) override;
  // Fails with kInvalidCall where no dialog can be shown. A printer that the user chooses takes the
  // place of the one in the settings.
  bool ShowPageSetup(PageDocument& document) override;

  // The file's name is the last part of `file`; it lies in the state directory.
  void Export(PageDocument& document, const std::string& file, std::int32_t format) override;

  void PreviewChanged(PageDocument& document) override;
  void PointerChanged(std::int32_t shape) override;

  void Complain(const std::string& text) override;

 private:
  [[nodiscard]] std::string PrinterOf(PageDocument& document) const;
  void PrintTo(PageDocument& document, bool withDialog, DocumentOutcome& outcome);

  const FrameSettings& settings_;
  Messages& messages_;
  std::string chosenPrinter_;  // in the page setup; empty: none
  Viewer viewer_;
  Complaints complaints_{settings_};
};

}  // namespace td
