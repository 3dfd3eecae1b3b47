// The toolbar of the preview.
#pragma once

#include <array>
#include <functional>
#include <string_view>

#include "preview/toolbar_buttons.h"
#include "windows/preview/window.h"
#include "windows/render/gdiplus_session.h"
#include "windows/render/screen_device.h"

namespace td {

// Each button is one of the system's, so that screen readers know it, with an image before its
// caption. What lies beyond the toolbar's width is not seen.
class Toolbar : public Window {
 public:
  // `pressed` is called with a button's key when it was clicked.
  Toolbar(HWND parent, std::function<void(std::string_view key)> pressed);

  // An unknown key has no effect, and is not enabled.
  void Enable(std::string_view key, bool isEnabled);
  [[nodiscard]] bool IsEnabled(std::string_view key) const;

  // Of a button; empty for a window that is none of them.
  [[nodiscard]] std::string_view KeyOf(HWND button) const;
  // In their order; null for an unknown key.
  [[nodiscard]] const std::array<HWND, kToolbarButtons.size()>& Buttons() const { return buttons_; }
  [[nodiscard]] HWND ButtonOf(std::string_view key) const;

  // Places the buttons for a resolution. The font is used until the next call.
  void LayOut(int dotsPerInch, HFONT font);
  // What all buttons need.
  [[nodiscard]] SIZE NeededSize() const { return needed_; }

 protected:
  LRESULT Receive(UINT message, WPARAM first, LPARAM second) override;

 private:
  static LRESULT CALLBACK Watched(HWND button, UINT message, WPARAM first, LPARAM second,
                                  UINT_PTR id, DWORD_PTR toolbar);
  void Paint();
  void DrawButton(const DRAWITEMSTRUCT& item) const;
  void PutHovered(HWND button);

  std::function<void(std::string_view key)> pressed_;
  GdiplusSession drawing_;
  std::array<HWND, kToolbarButtons.size()> buttons_{};
  HWND hovered_ = nullptr;
  HFONT font_ = nullptr;
  int dotsPerInch_ = 96;
  SIZE needed_{};
};

}  // namespace td
