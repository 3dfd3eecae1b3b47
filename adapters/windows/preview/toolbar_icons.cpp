#include "windows/preview/toolbar_icons.h"

#include <vector>

#include "preview/toolbar_icons.h"
#include "windows/render/gdiplus_session.h"

namespace td {
namespace {

Gdiplus::Color ColourFor(IconInk ink, bool isEnabled) {
  const Colour colour = ColourOf(ink, isEnabled);
  return {colour.red, colour.green, colour.blue};
}

// The outline of a shape, on the grid of the image.
void AddOutline(Gdiplus::GraphicsPath& path, const IconShape& shape) {
  std::vector<Gdiplus::PointF> points;
  for (const auto& [x, y] : shape.points) {
    points.emplace_back(static_cast<float>(x), static_cast<float>(y));
  }
  const Gdiplus::PointF& first = points[0];
  const Gdiplus::PointF& second = points[1];
  switch (shape.kind) {
    case IconShape::Kind::kLine:
      path.AddLine(first, second);
      break;
    case IconShape::Kind::kRectangle:
      path.AddRectangle(Gdiplus::RectF(first.X, first.Y, second.X - first.X, second.Y - first.Y));
      break;
    case IconShape::Kind::kCircle: {
      const float radius = second.X - first.X;
      path.AddEllipse(first.X - radius, first.Y - radius, 2 * radius, 2 * radius);
      break;
    }
    case IconShape::Kind::kPolygon:
      path.AddPolygon(points.data(), static_cast<int>(points.size()));
      break;
  }
}

void Draw(Gdiplus::Graphics& graphics, const IconShape& shape, bool isEnabled) {
  Gdiplus::GraphicsPath path;
  AddOutline(path, shape);
  if (shape.fill != IconInk::kNone) {
    const Gdiplus::SolidBrush brush(ColourFor(shape.fill, isEnabled));
    graphics.FillPath(&brush, &path);
  }
  if (shape.pen == IconInk::kNone) return;
  Gdiplus::Pen pen(ColourFor(shape.pen, isEnabled), static_cast<float>(shape.penWidth));
  const auto cap = shape.hasRoundEnds ? Gdiplus::LineCapRound : Gdiplus::LineCapFlat;
  pen.SetLineCap(cap, cap, Gdiplus::DashCapFlat);
  graphics.DrawPath(&pen, &path);
}

}  // namespace

void DrawToolbarIcon(HDC device, std::string_view key, const RECT& square, bool isEnabled) {
  Gdiplus::Graphics graphics(device);
  graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
  graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
  const auto scale = static_cast<float>(square.right - square.left) / kToolbarIconSize;
  graphics.TranslateTransform(static_cast<float>(square.left), static_cast<float>(square.top));
  graphics.ScaleTransform(scale, scale);
  for (const IconShape& shape : IconShapes(key)) Draw(graphics, shape, isEnabled);
}

}  // namespace td
