// A print window that is not shown.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "barcodes/zint_barcode.h"
#include "platform/windows.h"
#include "print_calls/delivery.h"
#include "print_calls/reporting_document.h"
#include "windows/system/desktop_host.h"

namespace td {

// Prints without a preview. What concerns the window's own parts has no effect.
class HiddenPrintFrame : public PrintFrame {
 public:
  // `messages` outlives the frame.
  HiddenPrintFrame(std::shared_ptr<const FrameSettings> settings, Messages& messages,
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

 private:
  std::shared_ptr<const FrameSettings> settings_;
  RunningCall call_;
  Messages& messages_;
  DesktopHost host_;
  ReportingDocument document_;
  ZintBarcode barcode_;
};

}  // namespace td
