#include "qt/system/application.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QThread>
#include <QTranslator>
#include <cerrno>
#include <cstdio>
#include <string>

#include "platform/failure.h"
#include "qt/preview/window_font.h"

namespace td {
namespace {

constexpr const char* kWithoutScreen = "offscreen";

// The window systems to try, best first. Qt ends the program when none of its list can be used, so
// that the list always ends with the one that needs nothing.
std::string WindowSystems() {
  std::string systems;
  if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    systems = qEnvironmentVariable("QT_QPA_PLATFORM").toStdString() + ";";
  } else {
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) systems += "wayland;";
    if (!qEnvironmentVariableIsEmpty("DISPLAY")) systems += "xcb;";
  }
  return systems + kWithoutScreen;
}

// While it looks for a window system, Qt warns of what it doesn't find. A program that prints
// without a screen is not to show that among its own messages.
class QuietSearch {
 public:
  QuietSearch() : former_(qInstallMessageHandler(ShowOnlyErrors)) {}
  ~QuietSearch() { qInstallMessageHandler(former_); }
  QuietSearch(const QuietSearch&) = delete;
  QuietSearch& operator=(const QuietSearch&) = delete;

 private:
  static void ShowOnlyErrors(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
      std::fprintf(stderr, "%s\n", text.toUtf8().constData());
    }
  }

  QtMessageHandler former_;
};

// The system's printer dialog then speaks the language of the component's own dialogs. Without the
// translation it stays in English.
void UseChineseWords(QApplication& application) {
  auto* words = new QTranslator(&application);
  if (words->load("qtbase_zh_CN", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(words);
  }
}

// Never deleted: whoever paints last in this process may do so while it ends.
void MakeApplication() {
  static std::string option = "-platform";
  static std::string systems = WindowSystems();
  static char* arguments[] = {program_invocation_name, option.data(), systems.data(), nullptr};
  static int count = 3;
  const QuietSearch quiet;
  static QApplication* const application = new QApplication(count, arguments);
  // The component's windows come and go; the end of the last one must not end the program.
  application->setQuitOnLastWindowClosed(false);
  UseChineseWords(*application);
  if (HasWindowSystem()) QApplication::setFont(FontWithChinese(QApplication::font()));
}

}  // namespace

void EnsureApplication() {
  if (QCoreApplication::instance() == nullptr) MakeApplication();
  if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr) {
    throw Failure(kInvalidCall,
                  "本程序的 Qt 应用对象没有图形部分（QCoreApplication），无法绘制打印内容，"
                  "请改用 QApplication 或 QGuiApplication。");
  }
  if (QCoreApplication::instance()->thread() != QThread::currentThread()) {
    throw Failure(kInvalidCall, "Qt 应用对象属于另一个线程，打印组件只能在那个线程中使用。");
  }
}

bool HasWindowSystem() {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) return false;
  const QString system = QGuiApplication::platformName();
  return system != kWithoutScreen && system != "minimal" && system != "minimalegl";
}

}  // namespace td
