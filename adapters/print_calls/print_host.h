// The machine around a page document, as far as every desktop has it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "page_document/affine_map.h"
#include "page_document/document_host.h"
#include "platform/platform.h"
#include "print_calls/delivery.h"
#include "print_calls/frame_settings.h"

namespace td {

class PrintHost : public DocumentHost {
 public:
  // Both outlive the host.
  PrintHost(const FrameSettings& settings, Messages& messages)
      : settings_(settings), messages_(messages) {}

  // What shows the document, or nothing: it hears of changes.
  struct Viewer {
    std::function<void()> previewChanged;
    std::function<void(std::int32_t shape)> pointerChanged;
  };

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

 protected:
  void PutViewer(Viewer viewer) { viewer_ = std::move(viewer); }

  virtual void PrintTo(PageDocument& document, bool withDialog, DocumentOutcome& outcome) = 0;

  // The printer that the user has chosen in the page setup, empty for none; nothing if the user has
  // left it.
  virtual std::optional<std::string> AskForPageSetup(PageDocument& document) = 0;
  // Where the document goes: to the printer of the settings, or to the one that the user has chosen
  // in its place; else to its own.
  [[nodiscard]] std::string PrinterOf(PageDocument& document) const;

  // What a job on the printer makes up for: nothing where the settings don't want that.
  [[nodiscard]] PageCorrection CorrectionOf(PageDocument& document, const std::string& printer);

 private:
  const FrameSettings& settings_;
  Messages& messages_;
  std::string chosenPrinter_;  // in the page setup; empty: none
  Viewer viewer_;
  Complaints complaints_{settings_};
};

// Fails with kInvalidCall if pages were chosen, and none of them is there.
void RequireChosenPages(const std::optional<std::vector<int>>& pages);
// Fails with kDeviceIo.
[[noreturn]] void FailWithoutPrinter();

}  // namespace td
