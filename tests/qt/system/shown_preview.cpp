#include "shown_preview.h"

#include <QTimer>

namespace td {

PreviewWindow& ShownWindow() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    auto* window = dynamic_cast<PreviewWindow*>(widget);
    if (window != nullptr && window->isVisible()) return *window;
  }
  throw std::runtime_error("no preview window is shown");
}

PageView& ViewOf(PreviewWindow& window) {
  for (QWidget* child : window.findChildren<QWidget*>()) {
    if (auto* view = dynamic_cast<PageView*>(child)) return *view;
  }
  throw std::runtime_error("the window has no view");
}

QAction& ButtonOf(PreviewWindow& window, const std::string& key) {
  return *window.findChild<QAction*>(QString::fromStdString(key));
}

void Click(PreviewWindow& window, const std::string& key) {
  auto* toolbar = window.findChild<QToolBar*>();
  QTest::mouseClick(toolbar->widgetForAction(&ButtonOf(window, key)), Qt::LeftButton);
}

void ShownPreview::Show(std::function<void()> run, std::function<void(PreviewWindow&)> use) {
  constexpr int kUntilItIsDrawn = 100;  // milliseconds
  frame_.Connect({.Load = [this] { ++loads_; },
                  .Activate =
                      [this, run = std::move(run), use = std::move(use)] {
                        if (++activations_ > 1) return;
                        run();
                        QTimer::singleShot(kUntilItIsDrawn, qApp, [use] {
                          use(ShownWindow());
                          ShownWindow().close();
                        });
                      },
                  .ButtonPressed = [this](std::string_view key) { pressed_.emplace_back(key); }});
  frame_.ShowModal();
}

void ShownPreview::MakeDocument(int pages) {
  PrintSurface& surface = frame_.Surface();
  surface.PutPaperSize(11);
  surface.StartDoc();
  for (int page = 1; page <= pages; ++page) {
    if (page > 1) surface.NewPage();
    surface.PutPenWidth(14);
    surface.DrawLine(500, 500, 7000, 500);
    surface.PutFontName("宋体");
    surface.TextBox("销售出库单 第" + std::to_string(page) + "页", 1000, 1000, 5000, 500);
  }
  surface.EndDoc();
}

}  // namespace td
