// A modal dialog that lays its controls out by itself, for each resolution anew.
#pragma once

#include <exception>
#include <functional>
#include <string>
#include <vector>

#include "windows/controls/modal_loop.h"
#include "windows/controls/visual_styles.h"
#include "windows/render/screen_device.h"

namespace td {

// A kind of window of the system, and what every one of this kind has.
struct ControlKind {
  const wchar_t* windowClass;
  DWORD style;
  DWORD extendedStyle = 0;
};

namespace control_kinds {

inline constexpr ControlKind kLabel{L"Static", SS_CENTERIMAGE | SS_NOPREFIX};
inline constexpr ControlKind kLabelAtRight{L"Static", SS_CENTERIMAGE | SS_NOPREFIX | SS_RIGHT};
inline constexpr ControlKind kTextBox{L"Edit", WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE};
inline constexpr ControlKind kCheckBox{L"Button", WS_TABSTOP | BS_AUTOCHECKBOX};
inline constexpr ControlKind kOption{L"Button", BS_AUTORADIOBUTTON};
inline constexpr ControlKind kFrame{L"Button", BS_GROUPBOX};
inline constexpr ControlKind kButton{L"Button", WS_TABSTOP | BS_PUSHBUTTON};
inline constexpr ControlKind kDefaultButton{L"Button", WS_TABSTOP | BS_DEFPUSHBUTTON};

}  // namespace control_kinds

// The window is made hidden, in front of OwnerWindow(), and lives as long as the object unless its
// owner is destroyed before.
class DialogFrame {
 public:
  explicit DialogFrame(const std::string& title);
  virtual ~DialogFrame();
  DialogFrame(const DialogFrame&) = delete;
  DialogFrame& operator=(const DialogFrame&) = delete;

  // Nothing after the window was destroyed.
  [[nodiscard]] HWND Window() const { return window_; }

  // Shows the dialog and returns when it was closed. What a reaction below throws closes it and
  // leaves this call.
  void ShowModal();
  // Hides the dialog. Closing it twice is no error.
  void Close();

 protected:
  // A control of the dialog; Tab visits them in the order in which they were made. `id` is for
  // Commanded: from kFirstControl on, and 0 for what the user can't use.
  HWND Add(const ControlKind& kind, const std::string& text, int id = 0, DWORD moreStyle = 0);
  static constexpr int kFirstControl = 100;

  // Pixels for so many at 96 dots per inch.
  [[nodiscard]] int Scaled(int pixels) const { return td::Scaled(pixels, dotsPerInch_); }
  [[nodiscard]] int DotsPerInch() const { return dotsPerInch_; }
  [[nodiscard]] HFONT Font() const { return font_.get(); }

  // Places all controls, which have Font() already, and returns the size that they take.
  virtual SIZE LayOut() = 0;
  // A control tells of something, as BN_CLICKED.
  virtual void Commanded(int id, int notification) = 0;
  // The close box or Escape; the dialog is still open.
  virtual void CloseAsked() { Close(); }
  // Any other message. True if it was dealt with, with `result` for the sender.
  virtual bool Received(UINT message, WPARAM wide, LPARAM lengthy, LRESULT& result);

 private:
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM lengthy);
  bool Answer(UINT message, WPARAM wide, LPARAM lengthy, LRESULT& result);
  void React(const std::function<void()>& reaction);
  void Fit(int dotsPerInch);
  void PlaceBeforeOwner();

  HWND window_ = nullptr;
  FontOwner font_;
  int dotsPerInch_ = 0;
  ModalLoop* loop_ = nullptr;
  bool isClosed_ = false;
  std::exception_ptr failure_;
};

}  // namespace td
