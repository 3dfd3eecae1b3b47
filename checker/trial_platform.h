// The platform of a trial: real pages, real pictures and barcodes, and nothing that leaves the
// program.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "barcodes/zint_barcode.h"
#include "checker/machine.h"
#include "page_document/page_document.h"
#include "page_outputs/windowless_host.h"
#include "platform/platform.h"

namespace td::checker {

// What the surface is asked for while a trial runs.
class TrialListener {
 public:
  virtual ~TrialListener() = default;
  virtual void Boxed(const BoxText& text) = 0;
  // A text without a box: where its lines lie.
  virtual void Written(const PaperExtent& size, double left, double top) = 0;
  virtual void Ruled(double x1, double y1, double x2, double y2) = 0;
  virtual void Pictured(const PlacedPicture& picture) = 0;
  virtual void BarcodeTold(const std::string& data) = 0;
  virtual void BarcodeRefused(const std::string& reason) = 0;
  virtual void MessageShown(const std::string& text) = 0;
  virtual void Complained(const std::string& text) = 0;
};

// The machine's printers and its own sheet, without a printer that prints.
class TrialHost : public WindowlessHost {
 public:
  TrialHost(const CheckedMachine& machine, std::string printer, TrialListener& listener);

  std::vector<std::string> Devices() override { return printers_; }
  std::string DefaultDevice() override { return defaultPrinter_; }
  bool HasDevice(const std::string& name) override;
  std::optional<PaperExtent> DefaultSheet() override;
  void Print(PageDocument& document, bool withDialog) override;
  void Complain(const std::string& text) override { listener_.Complained(text); }

  // The printer that the document would have gone to; empty before the end of the run.
  [[nodiscard]] const std::string& Printer() const { return usedPrinter_; }

 private:
  const CheckedMachine& machine_;
  std::vector<std::string> printers_;
  std::string defaultPrinter_;
  std::string printer_;  // that takes every document; empty: none
  std::string usedPrinter_;
  TrialListener& listener_;
};

// A document that tells what comes onto its pages.
class TrialDocument : public PageDocument {
 public:
  TrialDocument(DocumentHost& host, TrialListener& listener)
      : PageDocument(host), listener_(listener) {}

  void TextBox(const std::string& text, double left, double top, double width,
               double height) override;
  void TextBox(const std::string& text, double left, double top, double width, double height,
               const StoredFlag& wordWrap) override;
  void PutParagraph(const std::string& text) override;
  void PutText(const std::string& text) override;
  void DrawLine(double x1, double y1, double x2, double y2) override;
  void DrawPicture(const PictureRef& picture, double left, double top) override;
  void DrawPicture(const PictureRef& picture, double left, double top, double width,
                   double height) override;

 private:
  void TellBox(const std::string& text, double left, double top, double width, double height,
               bool wordWrap);
  void TellWritten(const std::string& text, double x, double y);

  TrialListener& listener_;
};

class TrialBarcode : public Barcode {
 public:
  TrialBarcode(const BarcodeSettings& settings, TrialListener& listener)
      : real_(settings,
              [&listener](const std::string& reason) { listener.BarcodeRefused(reason); }),
        listener_(listener) {}

  void PutData(const std::string& data) override {
    listener_.BarcodeTold(data);
    real_.PutData(data);
  }
  PictureRef GetPicture() override { return real_.GetPicture(); }

 private:
  ZintBarcode real_;
  TrialListener& listener_;
};

// Messages, machine and windows in one.
class TrialPlatform : public Messages, public Machine, public Windows {
 public:
  TrialPlatform(const CheckedMachine& machine, const std::string& printer, Database& database,
                TrialListener& listener, RunWitness& witness);

  [[nodiscard]] Platform& Get() { return platform_; }
  [[nodiscard]] TrialHost& Host() { return host_; }

  void ShowBox(const std::string& text, int /*style*/) override { listener_.MessageShown(text); }
  std::string LocalMachineId() override { return {}; }
  std::unique_ptr<PrintFrame> CreatePrintFrame(std::string_view name) override;
  std::unique_ptr<Dialog> CreateDialog(std::string_view name) override;

 private:
  const CheckedMachine& machine_;
  TrialListener& listener_;
  TrialHost host_;
  Platform platform_;
};

}  // namespace td::checker
