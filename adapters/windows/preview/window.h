// A window of the component.
#pragma once

#include <string>

#include "windows/api/windows_api.h"

namespace td {

// What a window draws at WM_PAINT.
class Painting {
 public:
  explicit Painting(HWND window) : window_(window) { BeginPaint(window, &paint_); }
  ~Painting() { EndPaint(window_, &paint_); }
  Painting(const Painting&) = delete;
  Painting& operator=(const Painting&) = delete;

  [[nodiscard]] HDC Device() const { return paint_.hdc; }
  // What is to be drawn anew.
  [[nodiscard]] const RECT& Seen() const { return paint_.rcPaint; }

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
};

// Owns a window of the system. It may go before this object, with the window that it belongs to.
class Window {
 public:
  virtual ~Window();
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  // Null before it is made and when it has gone.
  [[nodiscard]] HWND Handle() const { return handle_; }
  // In pixels of the monitor, whatever the program's awareness is.
  [[nodiscard]] SIZE InnerSize() const;
  [[nodiscard]] SIZE OuterSize() const;

 protected:
  // `parent` is the owner of a window that is no child. Fails with kOutOfMemory.
  Window(const std::string& title, DWORD style, DWORD extendedStyle, HWND parent);

  // A message for the window, from when it has been made. What fails is left to the system.
  virtual LRESULT Receive(UINT message, WPARAM first, LPARAM second) {
    return DefWindowProcW(handle_, message, first, second);
  }

 private:
  static LRESULT CALLBACK Dispatch(HWND handle, UINT message, WPARAM first, LPARAM second);

  HWND handle_ = nullptr;
};

void Fill(HDC device, const RECT& box, COLORREF colour);

void Place(HWND window, int left, int top, int width, int height);
// Height of a text box with a frame, in which a line of a font stands in the middle.
[[nodiscard]] int TextBoxHeight(HFONT font, int dotsPerInch);
void PutTextInto(HWND window, const std::string& text);

}  // namespace td
