// The designer's window on a real display with a real database, used as a person does.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QDialog>
#include <QTest>
#include <functional>
#include <memory>
#include <set>
#include <string>

#include "designer/window/designer_window.h"
#include "desktop/databases.h"
#include "desktop/desktop_platform.h"
#include "sample_engine.h"
#include "scratch_folder.h"

namespace td::designer {

// Places and lengths in tests are millimetres.
inline constexpr double kTenth = kTwipsPerMillimetre / 10;

// How the window is opened.
struct ShownFormat {
  int billType = 21;
  std::string format = {};  // empty: the selected one
  std::string data = {};
};

class ShownDesigner : public testing::Test {
 protected:
  // The sample's tables on the embedded database, with its rows or without any.
  explicit ShownDesigner(SampleRows rows = SampleRows::kAll);
  ~ShownDesigner() override;

  // Opens the window; an earlier one is gone then.
  DesignerWindow& Open(const ShownFormat& shown = {});
  [[nodiscard]] DesignerWindow& Window() { return *window_; }
  void CloseWindow();

  [[nodiscard]] SheetView& Sheet() { return window_->Sheet(); }
  [[nodiscard]] FormatDocument& Document() { return window_->TheWorkspace().document; }
  [[nodiscard]] Selection& Selected() { return window_->TheWorkspace().selection; }

  // The item that shows a text or names a variable.
  [[nodiscard]] const Item& ItemNamed(const std::string& name);
  // Where it is stored, millimetres.
  [[nodiscard]] Box PlaceOf(const std::string& name);
  // Where it is seen.
  [[nodiscard]] QPoint PixelOf(const std::string& name);
  [[nodiscard]] QPoint PixelAt(double x, double y);

  void Click(QPoint at, Qt::KeyboardModifiers modifiers = {});
  // In several steps, as a hand moves.
  void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {});
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
  // An action of menu or toolbar by its name; one that can't be used fails the test.
  void Trigger(const char* action);
  [[nodiscard]] QAction& ActionNamed(const char* name);
  [[nodiscard]] QWidget& WidgetNamed(const char* name);
  template <class Widget>
  [[nodiscard]] Widget& Find(const char* name) {
    auto* found = window_->findChild<Widget*>(name);
    if (found == nullptr) throw std::runtime_error(std::string("no ") + name);
    return *found;
  }
  // Until the window has drawn what has changed.
  void Settle();

  // `use` comes once a modal dialog of that name is shown; it closes it.
  void WhenShown(const char* dialog, std::function<void(QDialog&)> use);
  // Presses a button of the dialog of that name as soon as it is shown.
  void Answer(const char* dialog, const char* button);
  // Types a name into the question for one.
  void AnswerName(const char* name);
  // The texts of the dialogs that were answered.
  std::vector<std::string> asked_;

  // Of a platform that has a folder for goods pictures.
  [[nodiscard]] DesktopOptions Options() const;

  // The first cell of a query.
  [[nodiscard]] std::string Cell(const std::string& statement);

  ScratchFolder folder_;
  Databases databases_;
  std::unique_ptr<DesktopPlatform> desktop_;
  std::unique_ptr<DesignerWindow> window_;

 private:
  void RefuseUnexpected();

  QObject timers_;
  std::multiset<std::string> expected_;  // names of dialogs
};

// Writes a picture of a widget into the folder that the environment names, if it does: for the
// pages that show the window, and to look at.
void Photograph(QWidget& widget, const std::string& name);

}  // namespace td::designer
