// The component's dialogs on a real display with a real database, used as a person does.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "desktop/desktop_platform.h"
#include "qt/dialogs/dialog_window.h"
#include "temporary_database.h"
#include "window_database.h"

namespace td {

// A click into the box, and the text in the place of the former one.
void Type(DialogWindow& window, const char* box, const char* text);
// The list opened, and the entry chosen in it with the keyboard.
void Choose(DialogWindow& window, const char* list, const char* entry);
void Click(DialogWindow& window, const char* button);
// An option, or a check box.
void Click(QAbstractButton& button);
void PressKey(DialogWindow& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
// With Alt, for the button whose caption has the key.
void PressMnemonic(DialogWindow& window, Qt::Key key);

std::string TextOf(DialogWindow& window, const char* box);
std::vector<std::string> EntriesOf(DialogWindow& window, const char* list);

class ShownDialog : public testing::Test {
 protected:
  // Formats 销售单 (selected) and 两联单 of bill type 21, 入库单 of 12; stock areas A and B.
  ShownDialog();
  // The rows of the sample, or none.
  explicit ShownDialog(SampleRows rows);

  using Use = std::function<void(DialogWindow&)>;
  // Opens the dialog, uses it, and closes it by its close box if it is still open.
  void ShowSettings(Use use);
  void ShowAreaPrinters(Use use);

  // `use` comes once, as soon as such a window is shown, no message box stands before it, and it
  // has the focus: without a window manager nobody else gives it back after a box.
  template <class Window>
  void WhenShown(std::function<void(Window&)> use) {
    auto* timer = new QTimer(&timers_);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, use = std::move(use)] {
      for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* window = dynamic_cast<Window*>(widget);
        if (window == nullptr || QApplication::activeModalWidget() != window) continue;
        if (!window->isActiveWindow()) {
          window->activateWindow();
          continue;
        }
        timer->stop();
        use(*window);
        return;
      }
    });
    timer->start(kPollInterval);
  }
  // The same for a dialog, which is closed afterwards.
  void WhenDialogIsShown(Use use);

  [[nodiscard]] std::string Setting(const std::string& column,
                                    const std::string& format = "销售单");

  TemporaryFolder folder_;
  WindowDatabase database_;
  DesktopPlatform desktop_;
  std::vector<std::string> boxes_;  // texts of the message boxes that were shown and confirmed

 private:
  static constexpr int kPollInterval = 20;  // milliseconds

  void ConfirmBox();

  QObject timers_;
};

}  // namespace td
