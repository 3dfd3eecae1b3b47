// Makes the component's windows.
#pragma once

#include "barcodes/barcode_settings.h"
#include "platform/windows.h"
#include "qt/system/frame_settings.h"

namespace td {

class Messages;

class QtWindows : public Windows {
 public:
  // `messages` outlives this object, and this object its windows.
  QtWindows(FrameSettings settings, BarcodeSettings barcodeSettings, Messages& messages)
      : settings_(std::move(settings)),
        barcodeSettings_(std::move(barcodeSettings)),
        messages_(messages) {}

  // "frmTdPrint" and "frmTdPrint_GroupByStockArea", which look alike. Fails with kInvalidCall for
  // any other name.
  std::unique_ptr<PrintFrame> CreatePrintFrame(std::string_view name) override;

  // "frmAdjuct" and "frmAreaPrintSet". Fails with kInvalidCall for any other name.
  std::unique_ptr<Dialog> CreateDialog(std::string_view name) override;

 private:
  FrameSettings settings_;
  BarcodeSettings barcodeSettings_;
  Messages& messages_;
};

}  // namespace td
