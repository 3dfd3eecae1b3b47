// A print window that can be shown.
#pragma once

#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "windows/preview/preview_window.h"
#include "windows/system/print_frame.h"

namespace td {

// Without ShowModal it prints as the window does that is not shown.
class PreviewFrame : public HiddenPrintFrame {
 public:
  using HiddenPrintFrame::HiddenPrintFrame;

  void Connect(PrintFrameEvents events) override { events_ = std::move(events); }

  // Within it the thread's other windows take no input, and the thread's messages are handed out;
  // a wish to end the program closes the window and is left to the program's own loop.
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
