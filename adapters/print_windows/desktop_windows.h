// Makes the component's windows on any desktop.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

#include "barcodes/barcode_settings.h"
#include "dialogs/dialog_contents.h"
#include "platform/platform.h"
#include "platform/standard_failures.h"
#include "platform/windows.h"
#include "print_calls/frame_settings.h"

namespace td {

// FrameOfDesktop and DialogOfDesktop are what the desktop shows.
template <class FrameOfDesktop, class DialogOfDesktop>
class DesktopWindows : public Windows {
 public:
  // `messages` outlives this object, and this object its windows.
  DesktopWindows(FrameSettings settings, BarcodeSettings barcodeSettings, Messages& messages)
      : barcodeSettings_(std::move(barcodeSettings)), messages_(messages) {
    PutSettings(std::move(settings));
  }

  // For the windows that are made from now on; those that there are keep theirs.
  void PutSettings(FrameSettings settings) {
    settings_ = std::make_shared<const FrameSettings>(std::move(settings));
  }

  // All windows live on the thread that made this object.
  void CheckThread() const override {
    if (std::this_thread::get_id() != thread_) throw WrongThreadFailure();
  }

  // "frmTdPrint" and "frmTdPrint_GroupByStockArea", which look alike. Fails with kInvalidCall for
  // any other name.
  std::unique_ptr<PrintFrame> CreatePrintFrame(std::string_view name) override {
    if (name != "frmTdPrint" && name != "frmTdPrint_GroupByStockArea") throw NoSuchWindow(name);
    return std::make_unique<FrameOfDesktop>(settings_, messages_, barcodeSettings_);
  }

  // "frmAdjuct" and "frmAreaPrintSet". Fails with kInvalidCall for any other name.
  std::unique_ptr<Dialog> CreateDialog(std::string_view name) override {
    const DialogContents* contents = FindDialogContents(name);
    if (contents == nullptr) throw NoSuchWindow(name);
    return std::make_unique<DialogOfDesktop>(*contents, settings_, messages_);
  }

 private:
  [[nodiscard]] static Failure NoSuchWindow(std::string_view name) {
    return {kInvalidCall, "没有名为“" + std::string(name) + "”的窗口。"};
  }

  const std::thread::id thread_ = std::this_thread::get_id();
  std::shared_ptr<const FrameSettings> settings_;
  BarcodeSettings barcodeSettings_;
  Messages& messages_;
};

}  // namespace td
