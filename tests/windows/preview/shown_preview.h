// A print window that is shown, used and closed within a test.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "windows/system/message_boxes.h"
#include "windows/system/print_frame.h"

namespace td {

// Calls a step when the thread has nothing else to do, the painting of windows included.
void WhenIdle(std::function<void()> step);
// Those that have not come. To be called when what they are for has been closed.
void ForgetIdleSteps();

// Input as the system posts it. Keys go to the window that has the focus.
void PostClick(HWND window);
void PostKey(WPARAM key, bool withControl = false, bool withShift = false);
// Control and Shift as they were before PostKey.
void LetGoOfKeys();

// Whether keys go through the user's input method before they come to a window.
bool HasInputMethod(HWND window);

// The text of a window.
std::string WordsOf(HWND window);

// The window's picture goes into the folder of the environment variable QBTD_PICTURES, if it is
// set, to be looked at.
void TakePicture(HWND window, const std::string& name);

class ShownPreview : public testing::Test {
 protected:
  using Step = std::function<void()>;

  ~ShownPreview() override {
    ForgetIdleSteps();
    LetGoOfKeys();
  }

  // Shows the window. `run` is its first activation; the steps come one by one, each when
  // everything before it has been worked off, and the window is closed behind the last.
  void Show(Step run, std::vector<Step> steps);
  // A document of A5 sheets with a frame and a text on each.
  void MakeDocument(int pages);
  // The buttons do what the component's own routines do with them.
  void Act(std::string_view key);

  [[nodiscard]] const PreviewWindow& Window() const { return *frame_.Window(); }
  [[nodiscard]] const PageView& View() const { return Window().View(); }
  [[nodiscard]] HWND Button(std::string_view key) const { return Window().Buttons().ButtonOf(key); }
  [[nodiscard]] std::string PageWords() const { return WordsOf(Window().PageTextBox()); }
  [[nodiscard]] int Scrolled(int bar) const { return GetScrollPos(View().Handle(), bar); }
  // Of the window's inner part, in pixels at 96 dots per inch.
  void Resize(int width, int height);

  MessageBoxes messages_{MessageMode::kStandardError};
  NativePrintFrame frame_{std::make_shared<const FrameSettings>(), messages_, {}};
  PrintSurface& surface_ = frame_.Surface();
  int loads_ = 0;
  int activations_ = 0;
  std::vector<std::string> pressed_;

 private:
  void Next();

  std::deque<Step> steps_;
};

}  // namespace td
