#include "qt/preview/toolbar_icons.h"

#include <QPainter>
#include <array>

#include "qt/fields/drawn_icon.h"

namespace td {
namespace {

// Everything is drawn on a grid of 17 by 17 units; lines run through the middle of units, so that
// they are sharp at 100 percent.
struct Colours {
  QColor line;
  QColor accent;
  QColor warning;
  QColor paper;
};

Colours ColoursOf(QIcon::Mode mode) {
  if (mode == QIcon::Disabled) {
    return {QColor(160, 160, 160), QColor(176, 176, 176), QColor(176, 176, 176), Qt::white};
  }
  return {QColor(64, 64, 64), QColor(0, 95, 184), QColor(190, 30, 45), Qt::white};
}

void UsePen(QPainter& painter, const QColor& colour, double width) {
  painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
}

void DrawSheet(QPainter& painter, const Colours& colours, double left, double right) {
  UsePen(painter, colours.line, 1);
  painter.setBrush(colours.paper);
  painter.drawRect(QRectF(QPointF(left, 1.5), QPointF(right, 15.5)));
}

void FillShape(QPainter& painter, const QColor& colour, std::initializer_list<QPointF> points) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawPolygon(QPolygonF(points));
}

void DrawPreviousPage(QPainter& painter, const Colours& colours) {
  DrawSheet(painter, colours, 5.5, 15.5);
  FillShape(painter, colours.accent,
            {{1, 8.5}, {6.5, 3.5}, {6.5, 7}, {12, 7}, {12, 10}, {6.5, 10}, {6.5, 13.5}});
}

void DrawNextPage(QPainter& painter, const Colours& colours) {
  DrawSheet(painter, colours, 1.5, 11.5);
  FillShape(painter, colours.accent,
            {{16, 8.5}, {10.5, 3.5}, {10.5, 7}, {5, 7}, {5, 10}, {10.5, 10}, {10.5, 13.5}});
}

void DrawZoom(QPainter& painter, const Colours& colours) {
  painter.setPen(QPen(colours.accent, 2.6, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(11, 11), QPointF(15, 15));
  UsePen(painter, colours.line, 1.4);
  painter.setBrush(colours.paper);
  painter.drawEllipse(QPointF(7, 7), 5.3, 5.3);
  UsePen(painter, colours.accent, 1);
  painter.drawLine(QPointF(4, 7), QPointF(10, 7));
  painter.drawLine(QPointF(7, 4), QPointF(7, 10));
}

void DrawPageSetup(QPainter& painter, const Colours& colours) {
  DrawSheet(painter, colours, 2.5, 14.5);
  UsePen(painter, colours.accent, 1);
  for (const double x : {5.5, 11.5}) painter.drawLine(QPointF(x, 2), QPointF(x, 15));
  for (const double y : {4.5, 12.5}) painter.drawLine(QPointF(3, y), QPointF(14, y));
}

void DrawAdjustment(QPainter& painter, const Colours& colours) {
  constexpr std::array kSliders = {QPointF(4.5, 3.5), QPointF(10.5, 8.5), QPointF(6.5, 13.5)};
  for (const QPointF& knob : kSliders) {
    UsePen(painter, colours.line, 1);
    painter.drawLine(QPointF(1, knob.y()), QPointF(16, knob.y()));
    FillShape(painter, colours.accent,
              {knob + QPointF(-1.5, -2.5), knob + QPointF(1.5, -2.5), knob + QPointF(1.5, 2.5),
               knob + QPointF(-1.5, 2.5)});
  }
}

void DrawPrinter(QPainter& painter, const Colours& colours) {
  UsePen(painter, colours.line, 1);
  painter.setBrush(colours.paper);
  painter.drawRect(QRectF(4.5, 1.5, 8, 5));
  painter.setBrush(colours.line);
  painter.drawRect(QRectF(1.5, 6.5, 14, 5));
  painter.setBrush(colours.paper);
  painter.drawRect(QRectF(4.5, 9.5, 8, 6));
  UsePen(painter, colours.accent, 1);
  for (const double y : {11.5, 13.5}) painter.drawLine(QPointF(6, y), QPointF(11, y));
}

void DrawExit(QPainter& painter, const Colours& colours) {
  painter.setPen(QPen(colours.warning, 2.4, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(4, 4), QPointF(13, 13));
  painter.drawLine(QPointF(4, 13), QPointF(13, 4));
}

void DrawExport(QPainter& painter, const Colours& colours) {
  DrawSheet(painter, colours, 2.5, 14.5);
  FillShape(painter, colours.accent,
            {{8.5, 14}, {4.5, 9.5}, {7, 9.5}, {7, 3.5}, {10, 3.5}, {10, 9.5}, {12.5, 9.5}});
}

using Draw = void (*)(QPainter&, const Colours&);

struct KeyedIcon {
  std::string_view key;
  Draw draw;
};

constexpr std::array kIcons = {
    KeyedIcon{"previouspage", DrawPreviousPage},
    KeyedIcon{"nextpage", DrawNextPage},
    KeyedIcon{"zoom", DrawZoom},
    KeyedIcon{"pageset", DrawPageSetup},
    KeyedIcon{"adjuct", DrawAdjustment},
    KeyedIcon{"print", DrawPrinter},
    KeyedIcon{"exit", DrawExit},
    KeyedIcon{"export", DrawExport},
};

}  // namespace

QIcon ToolbarIcon(std::string_view key) {
  for (const KeyedIcon& icon : kIcons) {
    if (icon.key != key) continue;
    return DrawnIcon(kToolbarIconSize, [draw = icon.draw](QPainter& painter, QIcon::Mode mode) {
      draw(painter, ColoursOf(mode));
    });
  }
  return {};
}

}  // namespace td
