#include "designer/panels/panel_scroll.h"

#include <QEvent>
#include <QScrollBar>

namespace td::designer {
namespace {

class PanelScroll : public QScrollArea {
 public:
  explicit PanelScroll(QWidget* content) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    content->installEventFilter(this);
    setWidget(content);
    KeepWidth();
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) KeepWidth();
    return QScrollArea::eventFilter(watched, event);
  }

 private:
  void KeepWidth() {
    setMinimumWidth(widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width());
  }
};

}  // namespace

QScrollArea* MakePanelScroll(QWidget* content) {
  return new PanelScroll(content);
}

}  // namespace td::designer
