// Makes the windows of Windows itself.
#pragma once

#include <memory>
#include <string_view>
#include <thread>
#include <utility>

#include "barcodes/barcode_settings.h"
#include "platform/platform.h"
#include "platform/windows.h"
#include "print_calls/frame_settings.h"

namespace td {

class NativeWindows : public Windows {
 public:
  // `messages` outlives this object, and this object its windows.
  NativeWindows(FrameSettings settings, BarcodeSettings barcodeSettings, Messages& messages)
      : barcodeSettings_(std::move(barcodeSettings)), messages_(messages) {
    PutSettings(std::move(settings));
  }

  // For the windows that are made from now on; those that there are keep theirs.
  void PutSettings(FrameSettings settings) {
    settings_ = std::make_shared<const FrameSettings>(std::move(settings));
  }

  // All windows live on the thread that made this object.
  void CheckThread() const override;

  // "frmTdPrint" and "frmTdPrint_GroupByStockArea". Fails with kInvalidCall for any other name.
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
