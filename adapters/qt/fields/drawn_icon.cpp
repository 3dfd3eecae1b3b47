#include "qt/fields/drawn_icon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <utility>

namespace td {
namespace {

class Engine : public QIconEngine {
 public:
  Engine(int units, DrawIcon draw) : units_(units), draw_(std::move(draw)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.topLeft());
    painter->scale(1.0 * rect.width() / units_, 1.0 * rect.height() / units_);
    draw_(*painter, mode);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  [[nodiscard]] QIconEngine* clone() const override { return new Engine(*this); }

 private:
  int units_;
  DrawIcon draw_;
};

}  // namespace

QIcon DrawnIcon(int units, DrawIcon draw) {
  return QIcon(new Engine(units, std::move(draw)));
}

}  // namespace td
