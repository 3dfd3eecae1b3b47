#include "preview/toolbar_icons.h"

#include <array>

namespace td {
namespace {

// Thin lines run through the middle of units, so that they are sharp at 100 percent.
using Shapes = std::vector<IconShape>;
using Kind = IconShape::Kind;

IconShape Line(double x1, double y1, double x2, double y2, IconInk pen, double width = 1) {
  return {Kind::kLine, {{x1, y1}, {x2, y2}}, IconInk::kNone, pen, width};
}

IconShape Stroke(double x1, double y1, double x2, double y2, IconInk pen, double width) {
  IconShape stroke = Line(x1, y1, x2, y2, pen, width);
  stroke.hasRoundEnds = true;
  return stroke;
}

IconShape Box(double left, double top, double right, double bottom, IconInk fill) {
  return {Kind::kRectangle, {{left, top}, {right, bottom}}, fill, IconInk::kLine};
}

IconShape Sheet(double left, double right) {
  return Box(left, 1.5, right, 15.5, IconInk::kPaper);
}

IconShape Solid(std::vector<IconPoint> points) {
  return {Kind::kPolygon, std::move(points), IconInk::kAccent};
}

Shapes PreviousPage() {
  return {Sheet(5.5, 15.5),
          Solid({{1, 8.5}, {6.5, 3.5}, {6.5, 7}, {12, 7}, {12, 10}, {6.5, 10}, {6.5, 13.5}})};
}

Shapes NextPage() {
  return {Sheet(1.5, 11.5),
          Solid({{16, 8.5}, {10.5, 3.5}, {10.5, 7}, {5, 7}, {5, 10}, {10.5, 10}, {10.5, 13.5}})};
}

Shapes Zoom() {
  const IconShape glass{Kind::kCircle, {{7, 7}, {12.3, 7}}, IconInk::kPaper, IconInk::kLine, 1.4};
  return {Stroke(11, 11, 15, 15, IconInk::kAccent, 2.6), glass, Line(4, 7, 10, 7, IconInk::kAccent),
          Line(7, 4, 7, 10, IconInk::kAccent)};
}

Shapes PageSetup() {
  return {Sheet(2.5, 14.5), Line(5.5, 2, 5.5, 15, IconInk::kAccent),
          Line(11.5, 2, 11.5, 15, IconInk::kAccent), Line(3, 4.5, 14, 4.5, IconInk::kAccent),
          Line(3, 12.5, 14, 12.5, IconInk::kAccent)};
}

Shapes Adjustment() {
  constexpr std::array kKnobs = {IconPoint{4.5, 3.5}, IconPoint{10.5, 8.5}, IconPoint{6.5, 13.5}};
  Shapes shapes;
  for (const auto& [x, y] : kKnobs) {
    shapes.push_back(Line(1, y, 16, y, IconInk::kLine));
    shapes.push_back(
        Solid({{x - 1.5, y - 2.5}, {x + 1.5, y - 2.5}, {x + 1.5, y + 2.5}, {x - 1.5, y + 2.5}}));
  }
  return shapes;
}

Shapes Printer() {
  return {Box(4.5, 1.5, 12.5, 6.5, IconInk::kPaper), Box(1.5, 6.5, 15.5, 11.5, IconInk::kLine),
          Box(4.5, 9.5, 12.5, 15.5, IconInk::kPaper), Line(6, 11.5, 11, 11.5, IconInk::kAccent),
          Line(6, 13.5, 11, 13.5, IconInk::kAccent)};
}

Shapes Exit() {
  return {Stroke(4, 4, 13, 13, IconInk::kWarning, 2.4),
          Stroke(4, 13, 13, 4, IconInk::kWarning, 2.4)};
}

Shapes Export() {
  return {Sheet(2.5, 14.5),
          Solid({{8.5, 14}, {4.5, 9.5}, {7, 9.5}, {7, 3.5}, {10, 3.5}, {10, 9.5}, {12.5, 9.5}})};
}

struct KeyedIcon {
  std::string_view key;
  Shapes (*shapes)();
};

constexpr std::array kIcons = {
    KeyedIcon{"previouspage", PreviousPage},
    KeyedIcon{"nextpage", NextPage},
    KeyedIcon{"zoom", Zoom},
    KeyedIcon{"pageset", PageSetup},
    KeyedIcon{"adjuct", Adjustment},
    KeyedIcon{"print", Printer},
    KeyedIcon{"exit", Exit},
    KeyedIcon{"export", Export},
};

}  // namespace

Colour ColourOf(IconInk ink, bool isEnabled) {
  switch (ink) {
    case IconInk::kLine:
      return isEnabled ? Colour{64, 64, 64} : Colour{160, 160, 160};
    case IconInk::kAccent:
      return isEnabled ? Colour{0, 95, 184} : Colour{176, 176, 176};
    case IconInk::kWarning:
      return isEnabled ? Colour{190, 30, 45} : Colour{176, 176, 176};
    case IconInk::kNone:
    case IconInk::kPaper:
      break;
  }
  return {255, 255, 255};
}

std::vector<IconShape> IconShapes(std::string_view key) {
  for (const KeyedIcon& icon : kIcons) {
    if (icon.key == key) return icon.shapes();
  }
  return {};
}

}  // namespace td
