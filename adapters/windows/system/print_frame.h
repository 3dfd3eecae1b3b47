// A print window that is not shown.
#pragma once

#include <string>
#include <string_view>

#include "barcodes/zint_barcode.h"
#include "page_document/page_document.h"
#include "platform/windows.h"
#include "windows/system/desktop_host.h"

namespace td {

// A document that tells of its beginning and of each page that the run has finished.
class ReportingDocument : public PageDocument {
 public:
  ReportingDocument(DocumentHost& host, const FrameSettings& settings)
      : PageDocument(host), settings_(settings) {}

  void StartDoc() override;
  void NewPage() override;
  void EndDoc() override;

 private:
  void Report(int page);

  const FrameSettings& settings_;
};

// Prints without a preview. What concerns the window's own parts has no effect.
class HiddenPrintFrame : public PrintFrame {
 public:
  // Both outlive the frame.
  HiddenPrintFrame(const FrameSettings& settings, Messages& messages,
                   const BarcodeSettings& barcodeSettings);

  // Load and Activate don't come: the logic causes the loading itself where no window is shown.
  void Connect(PrintFrameEvents) override {}

  PrintSurface& Surface() override { return document_; }
  Barcode& BarcodeMaker() override { return barcode_; }
  // Nothing writes into the memo.
  std::string MemoText() override { return {}; }
  std::string MemoTextRtf() override { return {}; }

  // Fails with kInvalidCall, and tells the user: the print call goes on after any failure.
  void ShowModal() override;
  void Unload() override {}

  void EnableButton(std::string_view, bool) override {}
  void PutPageText(const std::string&) override {}

 protected:
  Messages& messages_;
  DesktopHost host_;
  ReportingDocument document_;
  ZintBarcode barcode_;
};

}  // namespace td
