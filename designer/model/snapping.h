// What a dragged box is drawn to: a grid, guides, the edges and centres of other items.
#pragma once

#include <optional>
#include <vector>

#include "designer/model/format.h"
#include "designer/model/sheet_layout.h"

namespace td::designer {

// Lines across the sheet, twips.
struct SnapLines {
  std::vector<double> x;
  std::vector<double> y;
};

struct SnapOptions {
  double tolerance = 0;  // how near a line must be; 0 or less: nothing is snapped
  double grid = 0;       // distance of the grid's lines from the corner of the sheet; 0: no grid
};

// How far the box must still be moved, and the lines that drew it. A guide or an item's edge wins
// over the grid, the nearest of several wins.
struct SnapResult {
  double dx = 0;
  double dy = 0;
  std::optional<double> atX;
  std::optional<double> atY;
};

// The edges and centres of all items but some, those of the sheet, and the guides.
[[nodiscard]] SnapLines LinesOf(const SheetLayout& layout, const Format& format,
                                const std::vector<ItemId>& except, const SnapLines& guides = {});

// Snaps a moved box by its edges and its centre.
[[nodiscard]] SnapResult SnapMoved(const Box& box, const SnapLines& lines,
                                   const SnapOptions& options);

// Which edges of a box are dragged when it is resized.
struct DraggedEdges {
  bool left = false;
  bool top = false;
  bool right = false;
  bool bottom = false;
};

// Snaps the dragged edges alone: dx and dy are what those edges must still move.
[[nodiscard]] SnapResult SnapResized(const Box& box, const DraggedEdges& edges,
                                     const SnapLines& lines, const SnapOptions& options);

}  // namespace td::designer
