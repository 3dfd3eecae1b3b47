// A print window on Qt, shown or not.
#pragma once

#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "barcodes/zint_barcode.h"
#include "page_document/page_document.h"
#include "platform/windows.h"
#include "qt/preview/preview_window.h"
#include "qt/system/desktop_host.h"

class QEventLoop;

namespace td {

// A document that tells of its beginning and of each page that the run has finished.
class ReportingDocument : public PageDocument {
 public:
  // The settings outlive the document.
  ReportingDocument(DocumentHost& host, const FrameSettings& settings)
      : PageDocument(host), settings_(settings) {}

  void StartDoc() override;
  void NewPage() override;
  void EndDoc() override;

 private:
  void Report(int page);
  void CheckStop() const;

  const FrameSettings& settings_;
};

class QtPrintFrame : public PrintFrame {
 public:
  // `messages` outlives the frame. Needs EnsureApplication().
  QtPrintFrame(std::shared_ptr<const FrameSettings> settings, Messages& messages,
               const BarcodeSettings& barcodeSettings);
  ~QtPrintFrame() override;
  QtPrintFrame(const QtPrintFrame&) = delete;
  QtPrintFrame& operator=(const QtPrintFrame&) = delete;

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
  void BeginAction() const;

  std::shared_ptr<const FrameSettings> settings_;
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
