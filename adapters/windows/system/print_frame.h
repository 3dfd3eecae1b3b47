// A print window of Windows itself, shown or not.
#pragma once

#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "barcodes/zint_barcode.h"
#include "platform/windows.h"
#include "print_calls/delivery.h"
#include "print_calls/reporting_document.h"
#include "windows/preview/preview_window.h"
#include "windows/system/desktop_host.h"

namespace td {

class NativePrintFrame : public PrintFrame {
 public:
  // `messages` outlives the frame.
  NativePrintFrame(std::shared_ptr<const FrameSettings> settings, Messages& messages,
                   const BarcodeSettings& barcodeSettings);

  // Where no window is shown, Load and Activate don't come: the logic causes the loading itself.
  void Connect(PrintFrameEvents events) override { events_ = std::move(events); }

  PrintSurface& Surface() override { return document_; }
  Barcode& BarcodeMaker() override { return barcode_; }
  // Nothing writes into the memo.
  std::string MemoText() override { return {}; }
  std::string MemoTextRtf() override { return {}; }

  // Within it the thread's other windows take no input, and the thread's messages are handed out;
  // a wish to end the program closes the window and is left to the program's own loop. Fails with
  // kInvalidCall, and tells the user, where no window can be shown: the print call goes on after
  // any failure.
  void ShowModal() override;
  void Unload() override;

  void EnableButton(std::string_view key, bool enabled) override;
  void PutPageText(const std::string& text) override;

  // While it is shown, for tests; else null.
  [[nodiscard]] const PreviewWindow* Window() const { return window_.get(); }

 private:
  void MakeWindow();
  void Activate();
  void PressButton(std::string_view key);
  void ShowFailure(const std::exception_ptr& failure);

  std::shared_ptr<const FrameSettings> settings_;
  RunningCall call_;
  Messages& messages_;
  DesktopHost host_;
  ReportingDocument document_;
  ZintBarcode barcode_;
  PrintFrameEvents events_;
  std::map<std::string, bool, std::less<>> enabledButtons_;
  std::optional<std::string> pageText_;    // none: the window's own text stands
  std::unique_ptr<PreviewWindow> window_;  // while it is shown
  bool isLoaded_ = false;
  bool isUnloaded_ = false;
  bool wasActivated_ = false;
  std::exception_ptr failureOfActivation_;
};

}  // namespace td
