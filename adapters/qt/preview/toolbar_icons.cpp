#include "qt/preview/toolbar_icons.h"

#include <QPainter>
#include <utility>
#include <vector>

#include "preview/toolbar_icons.h"
#include "qt/fields/drawn_icon.h"

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

void DrawShapes(QPainter& painter, const std::vector<IconShape>& shapes, QIcon::Mode mode) {
  for (const IconShape& shape : shapes) {
    UseInks(painter, shape, mode);
    DrawShape(painter, shape);
  }
}

}  // namespace

QIcon ToolbarIcon(std::string_view key) {
  std::vector<IconShape> shapes = IconShapes(key);
  if (shapes.empty()) return {};
  return DrawnIcon(kToolbarIconSize,
                   [shapes = std::move(shapes)](QPainter& painter, QIcon::Mode mode) {
                     DrawShapes(painter, shapes, mode);
                   });
}

}  // namespace td
