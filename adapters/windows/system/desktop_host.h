// The machine around a page document: its printers and its export file.
#pragma once

#include <string>
#include <vector>

#include "page_document/document_host.h"
#include "platform/platform.h"
#include "print_calls/delivery.h"
#include "print_calls/frame_settings.h"

namespace td {

class DesktopHost : public DocumentHost {
 public:
  // Both outlive the host.
  DesktopHost(const FrameSettings& settings, Messages& messages)
      : settings_(settings), messages_(messages) {}

  std::vector<std::string> Devices() override;
  std::string DefaultDevice() override;
  bool HasDevice(const std::string& name) override;
  // That of the printer in the settings, if they name one.
  std::optional<PaperExtent> DefaultSheet() override;

  double LineHeight(const TextLine& line) override;
  double LineWidth(const TextLine& line) override;

  // One job for each run of pages on the same sheet. Fails with kDeviceIo when the machine has no
  // printer, and with kInvalidCall when a dialog is asked for: there is no window to show it on.
  void Print(PageDocument& document, bool withDialog) override;
  // Fails with kInvalidCall: there is no window to show it on.
  bool ShowPageSetup(PageDocument& document) override;

  // The file's name is the last part of `file`; it lies in the state directory.
  void Export(PageDocument& document, const std::string& file, std::int32_t format) override;

  // Nobody looks.
  void PreviewChanged(PageDocument&) override {}
  void PointerChanged(std::int32_t) override {}

  void Complain(const std::string& text) override;

 private:
  void PrintTo(PageDocument& document, bool withDialog, DocumentOutcome& outcome);

  const FrameSettings& settings_;
  Messages& messages_;
  Complaints complaints_{settings_};
};

}  // namespace td
