#include "designer/model/snapping.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace td::designer {
namespace {

struct Nearest {
  double shift = 0;
  std::optional<double> line;
};

void Consider(Nearest& nearest, double from, double line, double tolerance) {
  const double shift = line - from;
  if (std::abs(shift) > tolerance) return;
  if (!nearest.line || std::abs(shift) < std::abs(nearest.shift)) nearest = {shift, line};
}

Nearest Snap(std::span<const double> edges, const std::vector<double>& lines,
             const SnapOptions& options) {
  Nearest nearest;
  if (options.tolerance <= 0) return nearest;
  for (const double edge : edges) {
    for (const double line : lines) Consider(nearest, edge, line, options.tolerance);
  }
  if (nearest.line || options.grid <= 0) return nearest;
  for (const double edge : edges) {
    Consider(nearest, edge, std::round(edge / options.grid) * options.grid, options.tolerance);
  }
  return nearest;
}

SnapResult Snapped(std::span<const double> x, std::span<const double> y, const SnapLines& lines,
                   const SnapOptions& options) {
  const Nearest across = Snap(x, lines.x, options);
  const Nearest down = Snap(y, lines.y, options);
  return {.dx = across.shift, .dy = down.shift, .atX = across.line, .atY = down.line};
}

void AddEdges(SnapLines& lines, const Box& box) {
  lines.x.insert(lines.x.end(), {box.left, box.CentreX(), box.Right()});
  lines.y.insert(lines.y.end(), {box.top, box.CentreY(), box.Bottom()});
}

}  // namespace

SnapLines LinesOf(const SheetLayout& layout, const Format& format,
                  const std::vector<ItemId>& except, const SnapLines& guides) {
  SnapLines lines = guides;
  AddEdges(lines, {0, 0, layout.width, layout.height});
  std::vector<ItemId> left = except;
  std::ranges::sort(left);
  for (const Item& item : format.items) {
    if (!IsDrawn(item) || std::ranges::binary_search(left, item.id)) continue;
    const Point offset = layout.OffsetOf(item.Site());
    AddEdges(lines, item.Place().MovedBy(offset.x, offset.y));
  }
  return lines;
}

SnapResult SnapMoved(const Box& box, const SnapLines& lines, const SnapOptions& options) {
  const std::array x = {box.left, box.CentreX(), box.Right()};
  const std::array y = {box.top, box.CentreY(), box.Bottom()};
  return Snapped(x, y, lines, options);
}

SnapResult SnapResized(const Box& box, const DraggedEdges& edges, const SnapLines& lines,
                       const SnapOptions& options) {
  std::vector<double> x;
  std::vector<double> y;
  if (edges.left) x.push_back(box.left);
  if (edges.right) x.push_back(box.Right());
  if (edges.top) y.push_back(box.top);
  if (edges.bottom) y.push_back(box.Bottom());
  return Snapped(x, y, lines, options);
}

}  // namespace td::designer
