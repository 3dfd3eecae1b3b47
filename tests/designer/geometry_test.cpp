// Where things stand on the sheet, what lies under the mouse, and what draws a dragged box.
#include <gtest/gtest.h>

#include <cmath>

#include "designer/model/hit_testing.h"
#include "designer/model/sheet_layout.h"
#include "designer/model/snapping.h"

namespace td::designer {
namespace {

class GeometryTest : public ::testing::Test {
 protected:
  GeometryTest() {
    format.row.PutNumber("FRowsPerPage", 4);
    format.row.PutNumber("FRowHeight", 300);
    format.row.PutNumber("FAdjuctLeft", 10);
    format.row.PutNumber("FAdjuctTop", 20);
    format.row.PutNumber("FAdjuctHeader", -700);
  }

  ItemId Add(ItemSite site, const Box& place, ItemKind kind = ItemKind::kText) {
    Item item = NewItem(format, kind, site, place);
    item.id = format.NewItemId();
    format.items.Append(item);
    return item.id;
  }
  [[nodiscard]] Box Drawn(ItemId id, int row = 0) const {
    return DrawnBox(LayoutOf(format), *format.items.Find(id), row);
  }

  Format format = NewFormat(21, "test");
};

TEST_F(GeometryTest, TheBandsStandWhereTheRunDrawsThem) {
  const SheetLayout layout = LayoutOf(format);
  EXPECT_EQ(layout.OffsetOf(ItemSite::kHead), (Point{10, 20}));
  EXPECT_EQ(layout.OffsetOf(ItemSite::kColumnHead), (Point{10, 20}));
  EXPECT_EQ(layout.OffsetOf(ItemSite::kRow, 2), (Point{10, 620}));
  EXPECT_EQ(layout.OffsetOf(ItemSite::kAfterRows), (Point{10, 920}));
  EXPECT_EQ(layout.OffsetOf(ItemSite::kFoot, 0, 1), (Point{10, 20}));
  EXPECT_EQ(layout.OffsetOf(ItemSite::kHead, 0, 4, PageOfBill::kLater), (Point{10, 20}));
  EXPECT_EQ(layout.OffsetOf(ItemSite::kRow, 1, 4, PageOfBill::kLater), (Point{10, -380}));
  EXPECT_EQ(layout.RowsOn(PageOfBill::kLater), 6);
}

TEST_F(GeometryTest, TheSheetIsThatOfThePaperAcrossOrAlong) {
  EXPECT_NEAR(LayoutOf(format).width, 11906, 1);
  format.row.PutNumber("FOrientation", 1);
  EXPECT_NEAR(LayoutOf(format).width, 16838, 1);
  format.row.PutNumber("FPaperSize", 256);
  format.row.PutNumber("FPaperWidth", 1000);
  format.row.PutNumber("FPaperHeight", 2000);
  EXPECT_EQ(LayoutOf(format).width, 2000);
  format.row.Set("FPaperWidth", Null{});
  EXPECT_EQ(LayoutOf(format, {0, 0, 5, 6}).width, 6) << "without a width no paper is set";
}

TEST_F(GeometryTest, ALineIsABoxOfItsThickness) {
  const ItemId across = Add(ItemSite::kHead, {100, 200, 400, 5}, ItemKind::kLine);
  const ItemId down = Add(ItemSite::kHead, {100, 200, 5, 400}, ItemKind::kLine);
  EXPECT_EQ(Drawn(across), (Box{110, 213, 400, 14}));
  EXPECT_EQ(Drawn(down), (Box{103, 220, 14, 400}));
}

TEST_F(GeometryTest, ANegativePlaceHidesAnItemOutsideTheHead) {
  EXPECT_TRUE(IsDrawn(*format.items.Find(Add(ItemSite::kHead, {-5, 0, 9, 9}))));
  EXPECT_FALSE(IsDrawn(*format.items.Find(Add(ItemSite::kRow, {-5, 0, 9, 9}))));
  EXPECT_FALSE(IsDrawn(*format.items.Find(Add(static_cast<ItemSite>(6), {5, 5, 9, 9}))));
}

TEST_F(GeometryTest, RowsBeginAtTheTopmostItemOfTheFirst) {
  Add(ItemSite::kRow, {0, 1000, 100, 200});
  Add(ItemSite::kRow, {0, 900, 100, 200});
  EXPECT_EQ(RowTops(LayoutOf(format), format), (std::vector<double>{920, 1220, 1520, 1820}));
  const auto rows = BandBox(LayoutOf(format), format, ItemSite::kRow);
  EXPECT_EQ(rows->height, 1200);
  EXPECT_FALSE(BandBox(LayoutOf(format), format, ItemSite::kFoot).has_value());
}

TEST_F(GeometryTest, TheItemInFrontIsHitFirst) {
  const ItemId foot = Add(ItemSite::kFoot, {100, 100, 100, 100});  // at 110, 1020 on the sheet
  const ItemId first = Add(ItemSite::kHead, {100, 1000, 100, 100});
  const ItemId second = Add(ItemSite::kHead, {150, 1000, 100, 100});
  const SheetLayout layout = LayoutOf(format);
  EXPECT_EQ(ItemsAt(layout, format, {180, 1050}), (std::vector{foot, second, first}));
  EXPECT_EQ(ItemsAt(layout, format, {255, 1050}), (std::vector{second}));
  EXPECT_TRUE(ItemsAt(layout, format, {262, 1050}).empty());
  EXPECT_EQ(ItemsAt(layout, format, {262, 1050}, {.tolerance = 3}), (std::vector{second}));
}

TEST_F(GeometryTest, AGhostOfARowHitsItsItemWhereItIsAskedFor) {
  const ItemId id = Add(ItemSite::kRow, {0, 1000, 100, 100});
  const SheetLayout layout = LayoutOf(format);
  EXPECT_TRUE(ItemsAt(layout, format, {50, 1650}).empty());
  EXPECT_EQ(ItemsAt(layout, format, {50, 1650}, {.inAllRows = true}), (std::vector{id}));
}

TEST_F(GeometryTest, ARubberBandTakesWhatLiesInIt) {
  const ItemId inside = Add(ItemSite::kHead, {100, 100, 100, 100});
  const ItemId across = Add(ItemSite::kHead, {250, 100, 100, 100});
  const SheetLayout layout = LayoutOf(format);
  const Box area{100, 100, 200, 200};
  EXPECT_EQ(ItemsIn(layout, format, area, false), (std::vector{inside}));
  EXPECT_EQ(ItemsIn(layout, format, area, true), (std::vector{inside, across}));
  EXPECT_EQ(*BoxAround(layout, format, {inside, across}), (Box{110, 120, 250, 100}));
}

TEST_F(GeometryTest, ABoxSnapsToTheNearestEdgeAndOnlyThenToTheGrid) {
  const ItemId id = Add(ItemSite::kHead, {1000, 1000, 500, 200});
  Add(ItemSite::kHead, {3000, 3000, 500, 200});
  const SheetLayout layout = LayoutOf(format);
  const SnapLines lines = LinesOf(layout, format, {id});
  const SnapOptions options{.tolerance = 20, .grid = 100};
  const SnapResult toEdge = SnapMoved({3002, 1013, 500, 200}, lines, options);
  EXPECT_EQ(toEdge.atX, 3010);
  EXPECT_EQ(toEdge.dx, 8);
  EXPECT_EQ(toEdge.atY, 1000) << "by the grid";
  EXPECT_EQ(toEdge.dy, -13);
  EXPECT_EQ(SnapMoved({3002, 1013, 500, 200}, lines, {}).dx, 0);
  const SnapResult resized = SnapResized({1000, 1000, 2000, 200}, {.right = true}, lines, options);
  EXPECT_EQ(resized.dx, 10);
  EXPECT_EQ(resized.dy, 0);
}

TEST_F(GeometryTest, LengthsAreKeptToATenThousandthOfAMillimetre) {
  for (int tenths = 0; tenths < 5000; ++tenths) {
    const double millimetres = tenths / 10.0;
    EXPECT_NEAR(MillimetresOf(StoredTwips(TwipsOf(millimetres))), millimetres, 0.0001);
  }
}

}  // namespace
}  // namespace td::designer
