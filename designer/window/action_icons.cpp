#include "designer/window/action_icons.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <algorithm>
#include <array>

namespace td::designer {
namespace {

// Everything is drawn on a grid of 18 by 18 units; lines run through the middle of units.
struct Colours {
  QColor line;
  QColor accent;
  QColor paper;
};

using Draw = void (*)(QPainter&, const Colours&);

void Sheet(QPainter& painter, const Colours& colours, const QRectF& box) {
  painter.setPen(QPen(colours.line, 1));
  painter.setBrush(colours.paper);
  painter.drawRect(box);
}

void Bars(QPainter& painter, const Colours& colours, const QRectF& one, const QRectF& other) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colours.accent);
  painter.drawRect(one);
  painter.drawRect(other);
}

void Rule(QPainter& painter, const Colours& colours, const QLineF& line) {
  painter.setPen(QPen(colours.line, 1));
  painter.drawLine(line);
}

void Turned(QPainter& painter, const Colours& colours, bool back) {
  painter.save();
  if (!back) {
    painter.translate(18, 0);
    painter.scale(-1, 1);
  }
  painter.setPen(QPen(colours.accent, 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawArc(QRectF(4, 6, 11, 9), -80 * 16, 190 * 16);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colours.accent);
  painter.drawPolygon(QPolygonF({{2, 7}, {9, 2.5}, {9, 10.5}}));
  painter.restore();
}

void New(QPainter& painter, const Colours& colours) {
  Sheet(painter, colours, {3.5, 1.5, 10, 14});
  painter.setPen(QPen(colours.accent, 2));
  painter.drawLine(QPointF(13, 9), QPointF(13, 17));
  painter.drawLine(QPointF(9, 13), QPointF(17, 13));
}

void Open(QPainter& painter, const Colours& colours) {
  painter.setPen(QPen(colours.line, 1));
  painter.setBrush(colours.paper);
  painter.drawPolygon(
      QPolygonF({{1.5, 15.5}, {1.5, 3.5}, {6.5, 3.5}, {8.5, 5.5}, {14.5, 5.5}, {14.5, 8.5}}));
  painter.setBrush(colours.accent);
  painter.drawPolygon(QPolygonF({{1.5, 15.5}, {4.5, 8.5}, {17.5, 8.5}, {14.5, 15.5}}));
}

void Save(QPainter& painter, const Colours& colours) {
  painter.setPen(QPen(colours.line, 1));
  painter.setBrush(colours.accent);
  painter.drawRect(QRectF(2.5, 2.5, 13, 13));
  painter.setPen(Qt::NoPen);
  painter.setBrush(colours.paper);
  painter.drawRect(QRectF(5, 3, 8, 5));
  painter.drawRect(QRectF(4, 10, 10, 5));
}

void Cut(QPainter& painter, const Colours& colours) {
  painter.setPen(QPen(colours.line, 1.4));
  painter.drawLine(QPointF(5, 2), QPointF(11.5, 12));
  painter.drawLine(QPointF(13, 2), QPointF(6.5, 12));
  painter.setPen(QPen(colours.accent, 1.6));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(QPointF(5, 13.8), 2.3, 2.3);
  painter.drawEllipse(QPointF(13, 13.8), 2.3, 2.3);
}

void Copy(QPainter& painter, const Colours& colours) {
  Sheet(painter, colours, {2.5, 1.5, 9, 11});
  Sheet(painter, colours, {6.5, 5.5, 9, 11});
  Rule(painter, {colours.accent, {}, {}}, {8.5, 9.5, 13.5, 9.5});
  Rule(painter, {colours.accent, {}, {}}, {8.5, 12.5, 13.5, 12.5});
}

void Paste(QPainter& painter, const Colours& colours) {
  Sheet(painter, {colours.line, {}, colours.accent}, {2.5, 2.5, 11, 13});
  Sheet(painter, colours, {5.5, 1.5, 5, 2});
  Sheet(painter, colours, {6.5, 6.5, 9, 10});
}

void Delete(QPainter& painter, const Colours& colours) {
  painter.setPen(QPen(colours.accent, 2.4, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(4, 4), QPointF(14, 14));
  painter.drawLine(QPointF(14, 4), QPointF(4, 14));
}

void OnlyValues(QPainter& painter, const Colours& colours) {
  Sheet(painter, colours, {2.5, 1.5, 13, 15});
  Bars(painter, colours, {5, 5, 8, 2}, {5, 11, 8, 2});
}

void ShowData(QPainter& painter, const Colours& colours) {
  Sheet(painter, colours, {2.5, 1.5, 13, 15});
  painter.setPen(colours.accent);
  QFont font = painter.font();
  font.setPixelSize(9);
  font.setBold(true);
  painter.setFont(font);
  painter.drawText(QRectF(2, 2, 14, 14), Qt::AlignCenter, QStringLiteral("12"));
}

void Whole(QPainter& painter, const Colours& colours) {
  Sheet(painter, colours, {5.5, 3.5, 7, 11});
  painter.setPen(QPen(colours.accent, 1.6));
  for (const auto& [x, dx] : {std::pair(1.5, 3.0), std::pair(16.5, -3.0)}) {
    for (const auto& [y, dy] : {std::pair(1.5, 3.0), std::pair(16.5, -3.0)}) {
      painter.drawLine(QPointF(x, y), QPointF(x + dx, y));
      painter.drawLine(QPointF(x, y), QPointF(x, y + dy));
    }
  }
}

struct Drawn {
  std::string_view name;
  Draw draw;
};

constexpr std::array kIcons = {
    Drawn{"new", New},
    Drawn{"open", Open},
    Drawn{"save", Save},
    Drawn{"undo", [](QPainter& p, const Colours& c) { Turned(p, c, true); }},
    Drawn{"redo", [](QPainter& p, const Colours& c) { Turned(p, c, false); }},
    Drawn{"cut", Cut},
    Drawn{"copy", Copy},
    Drawn{"paste", Paste},
    Drawn{"delete", Delete},
    Drawn{"onlyValues", OnlyValues},
    Drawn{"showData", ShowData},
    Drawn{"fitSheet", Whole},
    Drawn{"alignLeft",
          [](QPainter& p, const Colours& c) {
            Bars(p, c, {3, 4, 12, 4}, {3, 10, 7, 4});
            Rule(p, c, {1.5, 1, 1.5, 17});
          }},
    Drawn{"alignCentre",
          [](QPainter& p, const Colours& c) {
            Bars(p, c, {3, 4, 12, 4}, {5.5, 10, 7, 4});
            Rule(p, c, {8.5, 1, 8.5, 17});
          }},
    Drawn{"alignRight",
          [](QPainter& p, const Colours& c) {
            Bars(p, c, {3, 4, 12, 4}, {8, 10, 7, 4});
            Rule(p, c, {16.5, 1, 16.5, 17});
          }},
    Drawn{"alignTop",
          [](QPainter& p, const Colours& c) {
            Bars(p, c, {4, 3, 4, 12}, {10, 3, 4, 7});
            Rule(p, c, {1, 1.5, 17, 1.5});
          }},
    Drawn{"alignMiddle",
          [](QPainter& p, const Colours& c) {
            Bars(p, c, {4, 3, 4, 12}, {10, 5.5, 4, 7});
            Rule(p, c, {1, 8.5, 17, 8.5});
          }},
    Drawn{"alignBottom",
          [](QPainter& p, const Colours& c) {
            Bars(p, c, {4, 3, 4, 12}, {10, 8, 4, 7});
            Rule(p, c, {1, 16.5, 17, 16.5});
          }},
    Drawn{"distributeAcross",
          [](QPainter& p, const Colours& c) {
            Bars(p, c, {7, 4, 4, 10}, {0, 0, 0, 0});
            Rule(p, c, {1.5, 1, 1.5, 17});
            Rule(p, c, {16.5, 1, 16.5, 17});
          }},
    Drawn{"distributeDown",
          [](QPainter& p, const Colours& c) {
            Bars(p, c, {4, 7, 10, 4}, {0, 0, 0, 0});
            Rule(p, c, {1, 1.5, 17, 1.5});
            Rule(p, c, {1, 16.5, 17, 16.5});
          }},
};

// Drawn afresh for each size, so that it is sharp on every screen.
class Engine : public QIconEngine {
 public:
  explicit Engine(Draw draw) : draw_(draw) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const bool isOff = mode == QIcon::Disabled;
    const Colours colours{isOff ? QColor(160, 160, 160) : QColor(64, 64, 64),
                          isOff ? QColor(186, 186, 186) : QColor(0, 95, 184), Qt::white};
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.topLeft());
    painter->scale(rect.width() / 18.0, rect.height() / 18.0);
    draw_(*painter, colours);
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
  Draw draw_;
};

}  // namespace

QIcon ActionIcon(std::string_view name) {
  const auto* found = std::ranges::find(kIcons, name, &Drawn::name);
  return found == kIcons.end() ? QIcon() : QIcon(new Engine(found->draw));
}

}  // namespace td::designer
