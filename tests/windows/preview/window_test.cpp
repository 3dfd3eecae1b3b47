// What every window of the component does.
#include "windows/preview/window.h"

#include <gtest/gtest.h>

#include <new>

namespace td {
namespace {

class FailingWindow : public Window {
 public:
  FailingWindow() : Window("fails", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, nullptr) {}

 private:
  LRESULT Receive(UINT message, WPARAM first, LPARAM second) override {
    if (message != WM_PAINT) return Window::Receive(message, first, second);
    const Painting painting(Handle());
    throw std::bad_alloc();
  }
};

TEST(Window, WhatItFailsToDrawIsNotAskedForAgain) {
  const FailingWindow window;
  InvalidateRect(window.Handle(), nullptr, TRUE);
  UpdateWindow(window.Handle());
  EXPECT_EQ(GetUpdateRect(window.Handle(), nullptr, FALSE), FALSE);
}

}  // namespace
}  // namespace td
