#include "qt/preview/toolbar_icons.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <utility>
#include <vector>

#include "preview/toolbar_icons.h"

namespace td {
namespace {

QColor ColourOf(IconInk ink, QIcon::Mode mode) {
  const Colour colour = ColourOf(ink, mode != QIcon::Disabled);
  return {colour.red, colour.green, colour.blue};
}

QPointF PointOf(const IconPoint& point) {
  return {point.x, point.y};
}

void UseInks(QPainter& painter, const IconShape& shape, QIcon::Mode mode) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(Qt::NoPen);
  if (shape.fill != IconInk::kNone) painter.setBrush(ColourOf(shape.fill, mode));
  if (shape.pen == IconInk::kNone) return;
  painter.setPen(QPen(ColourOf(shape.pen, mode), shape.penWidth, Qt::SolidLine,
                      shape.hasRoundEnds ? Qt::RoundCap : Qt::FlatCap, Qt::MiterJoin));
}

void DrawShape(QPainter& painter, const IconShape& shape) {
  const QPointF first = PointOf(shape.points[0]);
  const QPointF second = PointOf(shape.points[1]);
  switch (shape.kind) {
    case IconShape::Kind::kLine:
      painter.drawLine(first, second);
      break;
    case IconShape::Kind::kRectangle:
      painter.drawRect(QRectF(first, second));
      break;
    case IconShape::Kind::kCircle: {
      const double radius = second.x() - first.x();
      painter.drawEllipse(first, radius, radius);
      break;
    }
    case IconShape::Kind::kPolygon: {
      QPolygonF polygon;
      for (const IconPoint& point : shape.points) polygon.append(PointOf(point));
      painter.drawPolygon(polygon);
      break;
    }
  }
}

class IconEngine : public QIconEngine {
 public:
  explicit IconEngine(std::vector<IconShape> shapes) : shapes_(std::move(shapes)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.topLeft());
    painter->scale(rect.width() / double{kToolbarIconSize},
                   rect.height() / double{kToolbarIconSize});
    for (const IconShape& shape : shapes_) {
      UseInks(*painter, shape, mode);
      DrawShape(*painter, shape);
    }
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  [[nodiscard]] QIconEngine* clone() const override { return new IconEngine(*this); }

 private:
  std::vector<IconShape> shapes_;
};

}  // namespace

QIcon ToolbarIcon(std::string_view key) {
  std::vector<IconShape> shapes = IconShapes(key);
  return shapes.empty() ? QIcon() : QIcon(new IconEngine(std::move(shapes)));
}

}  // namespace td
