// A print window on any desktop, shown or not.
#pragma once

#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "barcodes/zint_barcode.h"
#include "platform/failure.h"
#include "platform/platform.h"
#include "platform/windows.h"
#include "preview/preview_events.h"
#include "print_calls/delivery.h"
#include "print_calls/reporting_document.h"

namespace td {

// Host is the desktop's PrintHost, and Preview its window.
template <class Host, class Preview>
class ShownFrame : public PrintFrame {
 public:
  // `messages` outlives the frame.
  ShownFrame(std::shared_ptr<const FrameSettings> settings, Messages& messages,
             const BarcodeSettings& barcodeSettings)
      : settings_(std::move(settings)),
        call_(*settings_),
        messages_(messages),
        host_(*settings_, messages),
        document_(host_, *settings_),
        barcode_(barcodeSettings, [this](const std::string& reason) { host_.Complain(reason); }) {}

  // Where no window is shown, Load and Activate don't come: the logic causes the loading itself.
  void Connect(PrintFrameEvents events) override { events_ = std::move(events); }

  PrintSurface& Surface() override { return document_; }
  Barcode& BarcodeMaker() override { return barcode_; }
  // Nothing writes into the memo.
  std::string MemoText() override { return {}; }
  std::string MemoTextRtf() override { return {}; }

  // Fails with kInvalidCall where no window can be shown.
  void ShowModal() override {
    if (const std::optional<Failure> failure = WhyHidden()) {
      // The print call goes on after any failure and tells nobody.
      messages_.ShowBox(failure->Description(), kInformationIcon);
      throw Failure(*failure);
    }
    call_.BeginPreview();
    isUnloaded_ = false;
    wasActivated_ = false;
    failureOfActivation_ = nullptr;
    if (!isLoaded_) {
      isLoaded_ = true;
      if (events_.Load) events_.Load();
    }
    if (isUnloaded_) return;

    MakeWindow();
    window_->ShowModal();
    isLoaded_ = false;  // the program ends, or the window went with its owner
    host_.PutViewer({}, {});
    window_.reset();
    if (failureOfActivation_) std::rethrow_exception(failureOfActivation_);
  }

  // The window itself goes when ShowModal returns: what closed it may be one of its own events.
  void Unload() override {
    isLoaded_ = false;
    isUnloaded_ = true;
    if (window_) window_->Close();
  }

  void EnableButton(std::string_view key, bool enabled) override {
    enabledButtons_.insert_or_assign(std::string(key), enabled);
    if (window_) window_->EnableButton(key, enabled);
  }

  void PutPageText(const std::string& text) override {
    pageText_ = text;
    if (window_) window_->PutPageText(text);
  }

  // Null while it isn't shown; for tests.
  [[nodiscard]] const Preview* Window() const { return window_.get(); }

 protected:
  // Nothing where windows can be shown.
  [[nodiscard]] virtual std::optional<Failure> WhyHidden() const = 0;

 private:
  void MakeWindow() {
    window_ = std::make_unique<Preview>(
        document_,
        PreviewEvents{.activated = [this] { Activate(); },
                      .buttonPressed = [this](std::string_view key) { PressButton(key); },
                      .closed = [this] { Unload(); }});
    for (const auto& [key, enabled] : enabledButtons_) window_->EnableButton(key, enabled);
    if (pageText_) window_->PutPageText(*pageText_);
    window_->PutPointer(document_.MousePointer());
    host_.PutViewer(window_->Handle(),
                    {.previewChanged = [this] { window_->ShowDocumentChanges(); },
                     .pointerChanged = [this](std::int32_t shape) { window_->PutPointer(shape); }});
  }

  // No exception may pass through the desktop's code. A run that has stopped halfway has not told
  // of what it has drawn last, so that the window looks at the document itself afterwards.
  void Activate() {
    const bool isFirst = !wasActivated_;
    wasActivated_ = true;
    call_.BeginAction();
    try {
      if (events_.Activate) events_.Activate();
    } catch (...) {
      if (isFirst) {
        failureOfActivation_ = std::current_exception();
        Unload();
      } else {
        ShowFailure(std::current_exception());
      }
    }
    window_->ShowDocumentChanges();
  }

  void PressButton(std::string_view key) {
    call_.BeginAction();
    try {
      if (events_.ButtonPressed) events_.ButtonPressed(key);
    } catch (...) {
      ShowFailure(std::current_exception());
    }
    window_->ShowDocumentChanges();
  }

  void ShowFailure(const std::exception_ptr& failure) {
    try {
      std::rethrow_exception(failure);
    } catch (const std::exception& exception) {
      messages_.ShowBox(exception.what(), kInformationIcon);
    }
  }

  std::shared_ptr<const FrameSettings> settings_;
  RunningCall call_;
  Messages& messages_;
  Host host_;
  ReportingDocument document_;
  ZintBarcode barcode_;
  PrintFrameEvents events_;
  std::map<std::string, bool, std::less<>> enabledButtons_;
  std::optional<std::string> pageText_;  // none: the window's own text stands
  std::unique_ptr<Preview> window_;      // while it is shown
  bool isLoaded_ = false;
  bool isUnloaded_ = false;
  bool wasActivated_ = false;
  std::exception_ptr failureOfActivation_;
};

}  // namespace td
