#include "windows/system/print_frame.h"

#include <utility>

#include "platform/failure.h"
#include "windows/system/message_boxes.h"

namespace td {

NativePrintFrame::NativePrintFrame(std::shared_ptr<const FrameSettings> settings,
                                   Messages& messages, const BarcodeSettings& barcodeSettings)
    : settings_(std::move(settings)),
      call_(*settings_),
      messages_(messages),
      host_(*settings_, messages),
      document_(host_, *settings_),
      barcode_(barcodeSettings, [this](const std::string& reason) { host_.Complain(reason); }) {}

void NativePrintFrame::MakeWindow() {
  window_ = std::make_unique<PreviewWindow>(
      document_, PreviewEvents{.activated = [this] { Activate(); },
                               .buttonPressed = [this](std::string_view key) { PressButton(key); },
                               .closed = [this] { Unload(); }});
  for (const auto& [key, enabled] : enabledButtons_) window_->EnableButton(key, enabled);
  if (pageText_) window_->PutPageText(*pageText_);
  window_->PutPointer(document_.MousePointer());
  host_.PutViewer(window_->Handle(),
                  {.previewChanged = [this] { window_->ShowDocumentChanges(); },
                   .pointerChanged = [this](std::int32_t shape) { window_->PutPointer(shape); }});
}

void NativePrintFrame::ShowModal() {
  if (!HasVisibleDesktop()) {
    const Failure failure(kInvalidCall, "没有可用的窗口，无法打开预览。");
    messages_.ShowBox(failure.Description(), kInformationIcon);
    throw failure;
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
  host_.PutViewer(nullptr, {});
  window_.reset();
  if (failureOfActivation_) std::rethrow_exception(failureOfActivation_);
}

// The window itself goes when ShowModal returns: what closed it may be one of its own events.
void NativePrintFrame::Unload() {
  isLoaded_ = false;
  isUnloaded_ = true;
  if (window_) window_->Close();
}

// No exception may pass through the system's code. A run that has stopped halfway has not told of
// what it has drawn last, so that the window looks at the document itself afterwards.
void NativePrintFrame::Activate() {
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

void NativePrintFrame::PressButton(std::string_view key) {
  call_.BeginAction();
  try {
    if (events_.ButtonPressed) events_.ButtonPressed(key);
  } catch (...) {
    ShowFailure(std::current_exception());
  }
  window_->ShowDocumentChanges();
}

void NativePrintFrame::ShowFailure(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const std::exception& exception) {
    messages_.ShowBox(exception.what(), kInformationIcon);
  }
}

void NativePrintFrame::EnableButton(std::string_view key, bool enabled) {
  enabledButtons_.insert_or_assign(std::string(key), enabled);
  if (window_) window_->EnableButton(key, enabled);
}

void NativePrintFrame::PutPageText(const std::string& text) {
  pageText_ = text;
  if (window_) window_->PutPageText(text);
}

}  // namespace td
