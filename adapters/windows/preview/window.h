// A window of the component.
#pragma once

#include <string>

#include "windows/api/windows_api.h"

namespace td {

// The module that holds this code: the DLL or the program.
[[nodiscard]] HINSTANCE OwnModule();

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
  [[nodiscard]] SIZE InnerSize() const;

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

// Makes a control of the system's as a visible child; null if that fails.
[[nodiscard]] HWND MakeControl(HWND parent, const wchar_t* kind, const std::string& text,
                               DWORD style, int id = 0, DWORD extendedStyle = 0);

void Place(HWND window, int left, int top, int width, int height);
// Height of a text box with a frame, in which a line of a font stands in the middle.
[[nodiscard]] int TextBoxHeight(HFONT font, int dotsPerInch);
void PutTextInto(HWND window, const std::string& text);

// A length in pixels at 96 dots per inch, as it is at a resolution.
[[nodiscard]] inline int Scaled(int pixels, int dotsPerInch) {
  return MulDiv(pixels, dotsPerInch, 96);
}

}  // namespace td
