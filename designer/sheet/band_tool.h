// The bands beside the sheet, and dragging the rows' height and number.
#pragma once

#include <QRectF>
#include <optional>
#include <vector>

#include "designer/sheet/sheet_tool.h"
#include "designer/sheet/sheet_view.h"

namespace td::designer {

// Where a band lies on the page that is shown.
struct BandStrip {
  ItemSite site = ItemSite::kHead;
  Box box;
};
[[nodiscard]] std::vector<BandStrip> StripsOf(SheetView& view);

// The bar that marks a band to the left of the sheet, pixels.
[[nodiscard]] QRectF BarOf(const SheetView& view, const BandStrip& strip);

// What is dragged: below the first row its height, below the last row the rows of a page.
struct RowHandle {
  QRectF box;  // pixels
  bool isHeight = false;
};
[[nodiscard]] std::vector<RowHandle> RowHandlesOf(SheetView& view);

class BandTool : public SheetTool {
 public:
  explicit BandTool(SheetView& view) : view_(view) {}

  bool Press(const SheetMouse& mouse) override;
  void Drag(const SheetMouse& mouse) override;
  void Release(const SheetMouse& mouse) override;
  void Cancel() override;
  [[nodiscard]] std::optional<Qt::CursorShape> CursorAt(const SheetMouse& mouse) const override;

 private:
  SheetView& view_;
  std::optional<RowHandle> dragged_;
  double top_ = 0;  // of the first row, twips
  double formerHeight_ = 0;
  int formerRows_ = 0;
  std::uint64_t gesture_ = 0;
};

}  // namespace td::designer
