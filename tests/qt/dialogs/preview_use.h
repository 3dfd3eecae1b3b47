// What a person does with the preview window of a print call.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>
#include <QTest>
#include <QToolBar>
#include <string>

#include "qt/preview/preview_window.h"

namespace td {

inline void Press(PreviewWindow& window, const char* key) {
  auto* toolbar = window.findChild<QToolBar*>();
  QTest::mouseClick(toolbar->widgetForAction(window.findChild<QAction*>(key)), Qt::LeftButton);
}

inline std::string PageText(PreviewWindow& window) {
  return window.findChild<QLineEdit*>("txtPageNo")->text().toStdString();
}

// Fails the test if the text never comes.
inline void WaitForPageText(PreviewWindow& window, const std::string& text) {
  EXPECT_TRUE(QTest::qWaitFor([&] { return PageText(window) == text; })) << PageText(window);
}

}  // namespace td
