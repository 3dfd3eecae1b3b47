// Each test runs in a process of its own, since a process has one application at most.
#include "qt/system/application.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFontMetricsF>
#include <QPushButton>
#include <functional>
#include <thread>

#include "platform/failure.h"

namespace td {
namespace {

void ClearEnvironment() {
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) unsetenv(name);
}

[[noreturn]] void ExitWith(bool success) {
  _exit(success ? 0 : 1);
}

bool CanMeasureText() {
  return QFontMetricsF(QFont("Arial", 11)).horizontalAdvance("Text") > 10;
}

// `output` is a pattern for what the process may write to standard error.
void RunAlone(const std::function<bool()>& check, const char* output) {
  EXPECT_EXIT(ExitWith(check()), testing::ExitedWithCode(0), output);
}

constexpr const char* kNothing = "^$";
constexpr const char* kAnything = "";  // an application of its own brings its own warnings

TEST(Application, IsMadeWithoutADisplayAndSaysNothing) {
  RunAlone(
      [] {
        ClearEnvironment();
        EnsureApplication();
        EnsureApplication();
        return CanMeasureText() && !HasWindowSystem();
      },
      kNothing);
}

TEST(Application, IsMadeWhenTheDisplayCannotBeReached) {
  RunAlone(
      [] {
        ClearEnvironment();
        setenv("DISPLAY", ":7653", 1);
        setenv("WAYLAND_DISPLAY", "wayland-7653", 1);
        EnsureApplication();
        return CanMeasureText() && !HasWindowSystem();
      },
      kNothing);
}

TEST(Application, IsMadeWhenTheChosenWindowSystemCannotBeUsed) {
  RunAlone(
      [] {
        ClearEnvironment();
        setenv("QT_QPA_PLATFORM", "xcb", 1);
        EnsureApplication();
        return CanMeasureText() && !HasWindowSystem();
      },
      kNothing);
}

TEST(Application, OfTheProgramIsKept) {
  RunAlone(
      [] {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        int count = 0;
        QApplication application(count, nullptr);
        EnsureApplication();
        return qApp == &application && CanMeasureText();
      },
      kAnything);
}

std::string CaptionOfCancel() {
  const QDialogButtonBox box(QDialogButtonBox::Cancel);
  return box.button(QDialogButtonBox::Cancel)->text().remove('&').toStdString();
}

TEST(Application, OfTheComponentSpeaksChineseInTheSystemsDialogs) {
  RunAlone(
      [] {
        ClearEnvironment();
        EnsureApplication();
        return CaptionOfCancel() == "取消";
      },
      kNothing);
}

TEST(Application, OfTheProgramKeepsItsLanguage) {
  RunAlone(
      [] {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        int count = 0;
        QApplication application(count, nullptr);
        EnsureApplication();
        return CaptionOfCancel() == "Cancel";
      },
      kAnything);
}

TEST(Application, WithoutWidgetsPaintsButShowsNoWindow) {
  RunAlone(
      [] {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        int count = 0;
        QGuiApplication application(count, nullptr);
        EnsureApplication();
        return CanMeasureText() && !HasWindowSystem();
      },
      kAnything);
}

TEST(Application, OfAnotherThreadIsRefusedInWords) {
  RunAlone(
      [] {
        ClearEnvironment();
        EnsureApplication();
        std::string description;
        std::thread([&] {
          try {
            EnsureApplication();
          } catch (const Failure& failure) {
            description = failure.Description();
          }
        }).join();
        return description.find("线程") != std::string::npos;
      },
      kAnything);
}

TEST(Application, WithoutAGraphicalPartIsRefusedInWords) {
  RunAlone(
      [] {
        int count = 0;
        const QCoreApplication application(count, nullptr);
        try {
          EnsureApplication();
        } catch (const Failure& failure) {
          return failure.Number() == kInvalidCall &&
                 failure.Description().find("QCoreApplication") != std::string::npos;
        }
        return false;
      },
      kAnything);
}

}  // namespace
}  // namespace td
