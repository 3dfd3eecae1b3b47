// What a user of the preview waits for, in a document of 2,000 pages. preview_benchmark
// DATABASE_FILE; the database holds the sample. See preview.sh.
#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "desktop/desktop_platform.h"
#include "platform/platform.h"
#include "service/printer.h"
#include "work.h"

namespace td {
namespace {

constexpr int kPages = 2000;
constexpr int kRowsOfAPage = 16;
constexpr int kTimes = 100;  // that each thing is done

// Megabytes of this process, as the system calls them: VmRSS now, VmHWM at most.
double Megabytes(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    double kilobytes = 0;
    if (word == name + ':' && status >> kilobytes) return kilobytes / 1024;
  }
  return 0;
}

// Uses the window of a preview: waits for the end of its run, and measures.
class User : public QObject {
 public:
  User() { qApp->installEventFilter(this); }

  bool eventFilter(QObject* receiver, QEvent* event) override {
    auto* widget = qobject_cast<QWidget*>(receiver);
    if (widget == nullptr) return false;
    if (event->type() == QEvent::Show && widget->findChild<QAction*>("print") != nullptr) {
      if (window_ == nullptr) Watch(*widget->window());
    } else if (event->type() == QEvent::Paint && view_ != nullptr && widget == view_->viewport() &&
               sinceEnd_.isValid()) {
      if (paintings_++ == 0) QTimer::singleShot(0, this, [this] { Use(); });  // when it is painted
    }
    return false;
  }

 private:
  [[nodiscard]] QAction& Button(const char* key) const {
    return *window_->findChild<QAction*>(key);
  }

  // A run disables the buttons, and ends by enabling them.
  void Watch(QWidget& window) {
    window_ = &window;
    view_ = window.findChild<QAbstractScrollArea*>();
    connect(&Button("print"), &QAction::changed, this, [this] {
      if (!Button("print").isEnabled()) {
        runs_ = true;
      } else if (std::exchange(runs_, false)) {
        sinceEnd_.start();
      }
    });
  }

  void Use() {
    std::printf("| first page behind the run's end | | %.1f |\n", Milliseconds(sinceEnd_));
    for (const std::string scale : {"100 %", "50 %"}) {
      Measure("page turned at " + scale, [this](int) { Button("nextpage").trigger(); });
      QScrollBar& bar = *view_->verticalScrollBar();
      if (bar.maximum() > 0) {
        Measure("scrolled at " + scale,
                [&bar](int time) { bar.setValue((1 + time % 9) * bar.maximum() / 9); });
      }
      Button("zoom").trigger();
    }
    Measure("zoomed", [this](int) { Button("zoom").trigger(); });
    std::printf("| memory, MB | | %.0f |\n", Megabytes("VmHWM"));
    window_->close();
  }

  // The median and the longest time until what has been done stands on the screen.
  void Measure(const std::string& name, const std::function<void(int time)>& act) {
    std::vector<double> times;
    for (int time = 0; time < kTimes; ++time) {
      QElapsedTimer timer;
      timer.start();
      const int before = paintings_;
      act(time);
      while (paintings_ == before) QCoreApplication::processEvents();
      times.push_back(Milliseconds(timer));
    }
    std::ranges::sort(times);
    std::printf("| %s | %.1f | %.1f |\n", name.c_str(), times[times.size() / 2], times.back());
  }

  static double Milliseconds(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
  }

  QWidget* window_ = nullptr;
  QAbstractScrollArea* view_ = nullptr;
  bool runs_ = false;
  QElapsedTimer sinceEnd_;
  int paintings_ = 0;
};

int Preview(const std::string& connection) {
  MakeWorkFormat(connection);
  MakeWorkBills(connection, kPages * kRowsOfAPage, kRowsOfAPage);
  DesktopPlatform desktop;
  Platform& platform = desktop.Get();
  std::puts("| milliseconds | median | longest |\n|---|---|---|");
  const User user;
  Printer(platform).DoPrint(false, connection, kWorkBillType, false, false,
                            platform.database.OpenQuery(connection, kWorkData), kWorkFormat);
  return 0;
}

}  // namespace
}  // namespace td

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: preview_benchmark DATABASE_FILE\n";
    return 2;
  }
  try {
    return td::Preview(std::string("sqlite:") + argv[1]);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
}
