// The preview window: a tool strip with the toolbar and the page text, and the page below.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "page_document/page_document.h"
#include "preview/preview_events.h"
#include "windows/controls/modal_loop.h"
#include "windows/preview/held_input.h"
#include "windows/preview/page_view.h"
#include "windows/preview/toolbar.h"

namespace td {

// Most buttons have a key, which their tooltips name; Esc closes the window. Page Down and Space
// scroll, and turn the page at its end; Page Up and Shift+Space do so backwards. Home and End go to
// the ends of the page, with Ctrl to those of the document; Ctrl+G asks for a page's number. These
// keys work wherever the focus is. All lengths of the layout are twips, so that they follow the
// monitor's resolution.
class PreviewWindow : public Window {
 public:
  // The document outlives the window, which stands before OwnerWindow().
  PreviewWindow(PageDocument& document, PreviewEvents events);

  // Shows the window and returns when it was closed, or when the program ends; the thread's other
  // windows take no input meanwhile.
  void ShowModal();
  // Hides the window. Closing it twice is no error.
  void Close();

  // An unknown key has no effect. Both are visible at once, in the middle of a run, too. What was
  // clicked and typed before a button is enabled does nothing if it was meant for a disabled one;
  // the rest is acted upon when the run has returned to the message loop.
  void EnableButton(std::string_view key, bool isEnabled);
  void PutPageText(const std::string& text);

  void ShowDocumentChanges() { view_.ShowChanges(); }
  void PutPointer(std::int32_t shape);

  // The window's parts, for tests.
  [[nodiscard]] const Toolbar& Buttons() const { return toolbar_; }
  [[nodiscard]] const PageView& View() const { return view_; }
  [[nodiscard]] HWND PageTextBox() const { return pageText_; }

 protected:
  LRESULT Receive(UINT message, WPARAM first, LPARAM second) override;

 private:
  PreviewWindow(PageDocument& document, PreviewEvents events, HWND owner);

  void AddPageText();
  void AddToolTips();
  void UseResolution(int dotsPerInch);
  void UseSensibleSize();
  [[nodiscard]] double PixelsPerTwip() const;
  [[nodiscard]] SIZE PageTextSize() const;
  void LayOutParts();
  void Paint();

  bool Takes(MSG& message);
  [[nodiscard]] std::optional<KeyCommand> CommandIn(const MSG& message) const;
  [[nodiscard]] bool IsEnabled(const KeyCommand& command) const;
  void Obey(const KeyCommand& command);
  void Press(std::string_view key);
  void Zoom(bool isLarger);
  void PageForward();
  void PageBackward();
  void ShowPage(std::int16_t page);
  void GoToPage();
  void MoveFocus(bool isForward);
  void ReportActivation();

  PageDocument& document_;
  PreviewEvents events_;  // are called as the program reckons, whose code runs in them
  DPI_AWARENESS_CONTEXT programsAwareness_ = GetThreadDpiAwarenessContext();
  int dotsPerInch_ = 96;  // of the monitor on which it lies
  FontOwner font_;
  FontOwner pageFont_;
  Toolbar toolbar_;
  HWND pageText_ = nullptr;
  PageView view_;
  HWND toolTips_ = nullptr;
  HWND focused_ = nullptr;  // when the window was active last
  HeldInput heldInput_;
  ModalLoop* loop_ = nullptr;  // while it is shown
  bool wasActivated_ = false;
};

}  // namespace td
