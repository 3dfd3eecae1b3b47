// Makes the component's windows.
#pragma once

#include <thread>

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

  // All windows live on the thread that made this object.
  void CheckThread() const override;

  // "frmTdPrint" and "frmTdPrint_GroupByStockArea", which look alike. Fails with kInvalidCall for
  // any other name.
  std::unique_ptr<PrintFrame> CreatePrintFrame(std::string_view name) override;

  // "frmAdjuct" and "frmAreaPrintSet". Fails with kInvalidCall for any other name.
  std::unique_ptr<Dialog> CreateDialog(std::string_view name) override;

 private:
  const std::thread::id thread_ = std::this_thread::get_id();
  FrameSettings settings_;
  BarcodeSettings barcodeSettings_;
  Messages& messages_;
};

}  // namespace td
