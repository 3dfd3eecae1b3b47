// A print window that is shown, used and closed within a test.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <functional>
#include <memory>

#include "qt/preview/preview_window.h"
#include "qt/system/message_boxes.h"
#include "qt/system/print_frame.h"

namespace td {

// The window of the frame that is being shown; fails the test if there is none.
PreviewWindow& ShownWindow();
PageView& ViewOf(PreviewWindow& window);
QAction& ButtonOf(PreviewWindow& window, const std::string& key);
void Click(PreviewWindow& window, const std::string& key);

class ShownPreview : public testing::Test {
 protected:
  // Shows the window. `run` is its first activation; `use` comes when the window waits for its
  // user, and the window is closed after it.
  void Show(std::function<void()> run, std::function<void(PreviewWindow&)> use);
  // A document of A5 sheets with a frame and a text on each.
  void MakeDocument(int pages);

  MessageBoxes messages_{MessageMode::kStandardError};
  const std::shared_ptr<FrameSettings> settings_ = std::make_shared<FrameSettings>();
  QtPrintFrame frame_{settings_, messages_, {}};
  int loads_ = 0;
  int activations_ = 0;
  std::vector<std::string> pressed_;
};

}  // namespace td
