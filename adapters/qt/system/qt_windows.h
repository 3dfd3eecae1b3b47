// Makes the component's windows.
#pragma once

#include <memory>
#include <thread>
#include <utility>

#include "barcodes/barcode_settings.h"
#include "platform/windows.h"
#include "print_calls/frame_settings.h"

namespace td {

class Messages;

class QtWindows : public Windows {
 public:
  // `messages` outlives this object, and this object its windows.
  QtWindows(FrameSettings settings, BarcodeSettings barcodeSettings, Messages& messages)
      : barcodeSettings_(std::move(barcodeSettings)), messages_(messages) {
    PutSettings(std::move(settings));
  }

  // For the windows that are made from now on; those that there are keep theirs.
  void PutSettings(FrameSettings settings) {
    settings_ = std::make_shared<const FrameSettings>(std::move(settings));
  }

  // All windows live on the thread that made this object.
  void CheckThread() const override;

  // "frmTdPrint" and "frmTdPrint_GroupByStockArea", which look alike. Fails with kInvalidCall for
  // any other name.
  std::unique_ptr<PrintFrame> CreatePrintFrame(std::string_view name) override;

  // "frmAdjuct" and "frmAreaPrintSet". Fails with kInvalidCall for any other name.
  std::unique_ptr<Dialog> CreateDialog(std::string_view name) override;

 private:
  const std::thread::id thread_ = std::this_thread::get_id();
  std::shared_ptr<const FrameSettings> settings_;
  BarcodeSettings barcodeSettings_;
  Messages& messages_;
};

}  // namespace td
