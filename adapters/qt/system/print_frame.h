// A print window on Qt, shown or not.
#pragma once

#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "barcodes/zint_barcode.h"
#include "platform/windows.h"
#include "print_calls/delivery.h"
#include "print_calls/reporting_document.h"
#include "qt/preview/preview_window.h"
#include "qt/system/desktop_host.h"

class QEventLoop;

namespace td {

class QtPrintFrame : public PrintFrame {
 public:
  // `messages` outlives the frame. Needs EnsureApplication().
  QtPrintFrame(std::shared_ptr<const FrameSettings> settings, Messages& messages,
               const BarcodeSettings& barcodeSettings);

  void Connect(PrintFrameEvents events) override { events_ = std::move(events); }

  PrintSurface& Surface() override { return document_; }
  Barcode& BarcodeMaker() override { return barcode_; }
  // Nothing writes into the memo.
  std::string MemoText() override { return {}; }
  std::string MemoTextRtf() override { return {}; }

  // Fails with kInvalidCall where no window can be shown.
  void ShowModal() override;
  void Unload() override;

  void EnableButton(std::string_view key, bool enabled) override;
  void PutPageText(const std::string& text) override;

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
  QEventLoop* loop_ = nullptr;             // while it is shown
  bool isLoaded_ = false;
  bool isUnloaded_ = false;
  bool wasActivated_ = false;
  std::exception_ptr failureOfActivation_;
};

}  // namespace td
