// Draws a sheet view, layer by layer.
#pragma once

#include <QPainter>

#include "designer/sheet/sheet_view.h"

namespace td::designer {

class SheetPainter {
 public:
  explicit SheetPainter(SheetView& view) : view_(view) {}

  // Desk, paper, scan, grid, bands and items.
  void DrawStill(QPainter& painter) const;
  // The items that are lifted, as they lay when they were.
  void DrawLifted(QPainter& painter) const;
  // Frames, guides, what is selected.
  void DrawMarks(QPainter& painter) const;

 private:
  void DrawPaper(QPainter& painter) const;
  void DrawScan(QPainter& painter) const;
  void DrawGrid(QPainter& painter) const;
  void DrawBands(QPainter& painter) const;
  void DrawRows(QPainter& painter) const;
  void DrawPieces(QPainter& painter, bool lifted) const;
  void DrawFrames(QPainter& painter, bool lifted) const;
  void DrawGuides(QPainter& painter) const;
  void DrawFindings(QPainter& painter) const;
  void DrawSelection(QPainter& painter) const;
  [[nodiscard]] bool IsLifted(ItemId item) const;

  SheetView& view_;
};

// The colour of a mark.
[[nodiscard]] QColor ColourOf(FindingSeverity severity);

// The colour of a band.
[[nodiscard]] QColor ColourOf(ItemSite site);

// The handles of a selection: its corners and the middles of its sides, pixels. Of a line only
// those that lengthen it.
struct Handle {
  QPointF at;
  DraggedEdges edges;
};
[[nodiscard]] std::vector<Handle> HandlesOf(SheetView& view);
inline constexpr double kHandleSize = 7;

// Where the selection is seen: around all of it. Nothing if it isn't.
[[nodiscard]] std::optional<Box> SelectedBox(SheetView& view);

}  // namespace td::designer
