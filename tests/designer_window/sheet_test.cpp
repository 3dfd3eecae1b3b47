// Selecting, moving and resizing on the sheet, with the mouse and the keys.
#include <QMimeData>
#include <QWheelEvent>

#include "designer/sheet/band_tool.h"
#include "designer/sheet/sheet_painter.h"
#include "shown_designer.h"

namespace td::designer {
namespace {

class DesignerSheet : public ShownDesigner {
 protected:
  void SetUp() override {
    Open();
    Window().Sheet().PutZoom(150);
    SheetOptions options = Sheet().Options();
    options.snaps = false;
    Sheet().PutOptions(options);
    Settle();
  }

  void Drop(const DroppedChoice& choice, QPoint at) {
    const auto data = MimeOf(choice);
    QDragEnterEvent enter(at, Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(Sheet().viewport(), &enter);
    QDragMoveEvent move(at, Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(Sheet().viewport(), &move);
    accepted_ = move.isAccepted();
    if (!accepted_) return;
    QDropEvent drop(at, Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(Sheet().viewport(), &drop);
  }

  bool accepted_ = false;
};

constexpr double kExact = 0.001;  // millimetres: what storing a length may round

TEST_F(DesignerSheet, AClickSelectsAndCtrlAddsAndTakesAway) {
  Click(PixelOf("客户"));
  EXPECT_EQ(Selected().Items(), ItemIds{ItemNamed("客户").id});
  Click(PixelOf("结算方式"), Qt::ControlModifier);
  EXPECT_EQ(Selected().Items(), (ItemIds{ItemNamed("客户").id, ItemNamed("结算方式").id}));
  Click(PixelOf("客户"), Qt::ControlModifier);
  EXPECT_EQ(Selected().Items(), ItemIds{ItemNamed("结算方式").id});
  Click(PixelAt(3, 130));
  EXPECT_TRUE(Selected().Empty());
}

TEST_F(DesignerSheet, ARubberBandCatchesWhatLiesInsideOrIsTouched) {
  const auto box = *Sheet().BoxOf(ItemNamed("客户").id);
  const QRectF seen = Sheet().ToView(box);
  const QPoint free(PixelAt(4, 19).x(), qRound(seen.top()) - 3);
  Drag(free, {qRound(seen.center().x()), qRound(seen.bottom()) + 1});
  EXPECT_FALSE(Selected().Has(ItemNamed("客户").id)) << "from left to right, half inside";
  const QPoint right(qRound(seen.center().x()), qRound(seen.bottom()) + 1);
  Drag(free, {qRound(seen.right()) + 2, right.y()});
  EXPECT_TRUE(Selected().Has(ItemNamed("客户").id));
  Drag(PixelAt(239, 136), PixelAt(215, 38));
  EXPECT_FALSE(Selected().Empty()) << "from right to left it is enough to touch";
}

TEST_F(DesignerSheet, ADragMovesByTenthsOfAMillimetreAndIsOneStep) {
  const Box before = PlaceOf("客户");
  const Box other = PlaceOf("地址");
  const double pixels = Sheet().PixelsPerTwip() * kTwipsPerMillimetre;
  const QPoint from = PixelOf("客户");
  Drag(from, from + QPoint(qRound(7 * pixels), qRound(3 * pixels)));
  const Box after = PlaceOf("客户");
  EXPECT_NEAR(after.left - before.left, 7, 0.2);
  EXPECT_NEAR(after.top - before.top, 3, 0.2);
  const double tenths = (after.left - before.left) * 10;
  EXPECT_NEAR(tenths, std::round(tenths), 0.01);
  EXPECT_EQ(PlaceOf("地址"), other);
  Trigger("undo");
  EXPECT_EQ(PlaceOf("客户"), before);
  EXPECT_FALSE(Document().CanUndo());
  Trigger("redo");
  EXPECT_EQ(PlaceOf("客户"), after);
}

TEST_F(DesignerSheet, EscapeTakesADragBack) {
  const Box before = PlaceOf("客户");
  QTest::mousePress(Sheet().viewport(), Qt::LeftButton, {}, PixelOf("客户"));
  const QPointF at = PixelOf("客户") + QPoint(60, 30);
  QMouseEvent move(QEvent::MouseMove, at, at, Qt::NoButton, Qt::LeftButton, {});
  QApplication::sendEvent(Sheet().viewport(), &move);
  EXPECT_NE(PlaceOf("客户"), before);
  Press(Qt::Key_Escape);
  EXPECT_EQ(PlaceOf("客户"), before);
  EXPECT_FALSE(Document().IsModified());
  QTest::mouseRelease(Sheet().viewport(), Qt::LeftButton, {}, at.toPoint());
  EXPECT_EQ(PlaceOf("客户"), before);
}

TEST_F(DesignerSheet, ArrowKeysMoveByATenthAndWithShiftByAMillimetre) {
  Click(PixelOf("客户"));
  Click(PixelOf("地址"), Qt::ControlModifier);
  const Box customer = PlaceOf("客户");
  const Box address = PlaceOf("地址");
  Press(Qt::Key_Right);
  Press(Qt::Key_Right);
  Press(Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_NEAR(PlaceOf("客户").left, customer.left + 0.2, kExact);
  EXPECT_NEAR(PlaceOf("客户").top, customer.top - 1, kExact);
  EXPECT_NEAR(PlaceOf("地址").left, address.left + 0.2, kExact);
  Press(Qt::Key_Left);
  Press(Qt::Key_Down);
  EXPECT_NEAR(PlaceOf("地址").left, address.left + 0.1, kExact);
  EXPECT_NEAR(PlaceOf("地址").top, address.top - 0.9, kExact);
  for (int i = 0; i < 5; ++i) Trigger("undo");
  EXPECT_EQ(PlaceOf("客户"), customer);
  EXPECT_EQ(PlaceOf("地址"), address);
}

TEST_F(DesignerSheet, HandlesResize) {
  Click(PixelOf("客户"));
  const Box before = PlaceOf("客户");
  const auto handles = HandlesOf(Sheet());
  ASSERT_EQ(handles.size(), 8U);
  const double pixels = Sheet().PixelsPerTwip() * kTwipsPerMillimetre;
  const QPoint corner = handles.back().at.toPoint();
  Drag(corner, corner + QPoint(qRound(5 * pixels), qRound(2 * pixels)));
  EXPECT_NEAR(PlaceOf("客户").width, before.width + 5, 0.25);
  EXPECT_NEAR(PlaceOf("客户").height, before.height + 2, 0.25);
  EXPECT_EQ(PlaceOf("客户").left, before.left);
  Trigger("undo");
  EXPECT_EQ(PlaceOf("客户"), before);
}

TEST_F(DesignerSheet, SeveralItemsAreResizedTogether) {
  Click(PixelOf("客户"));
  Click(PixelOf("地址"), Qt::ControlModifier);
  const Box one = PlaceOf("客户");
  const auto handles = HandlesOf(Sheet());
  const QRectF all = Sheet().ToView(*SelectedBox(Sheet()));
  const QPoint corner = handles.back().at.toPoint();
  Drag(corner, corner + QPoint(qRound(all.width()), 0));
  EXPECT_NEAR(PlaceOf("客户").width, 2 * one.width, 0.5);
  Trigger("undo");
  EXPECT_EQ(PlaceOf("客户"), one);
}

TEST_F(DesignerSheet, ADragSnapsToGuidesAndItems) {
  SheetOptions options = Sheet().Options();
  options.snaps = true;
  options.showsGrid = false;
  Sheet().PutOptions(options);
  const Box address = PlaceOf("地址");
  const QPoint from = PixelOf("客户");
  Drag(from, from + QPoint(2, 3));
  EXPECT_NEAR(PlaceOf("客户").left, address.left, kExact) << "the neighbour's edge";
  ItemIds others;
  for (const Item& item : Document().Current().items) {
    if (item.FieldName() != "客户") others.push_back(item.id);
  }
  Document().Remove(others);
  Settle();
  Sheet().Aids().guides.x = {TwipsOf(100)};
  const double pixels = Sheet().PixelsPerTwip() * kTwipsPerMillimetre;
  const QPoint start = PixelOf("客户");
  const double distance = 100 - MillimetresOf(Sheet().BoxOf(ItemNamed("客户").id)->left);
  Drag(start, start + QPoint(qRound(distance * pixels) + 3, 40));
  EXPECT_NEAR(MillimetresOf(Sheet().BoxOf(ItemNamed("客户").id)->left), 100, kExact);
}

TEST_F(DesignerSheet, TheRowsHeightAndNumberAreDragged) {
  const double height = Sheet().Layout().rowHeight;
  const int rows = Sheet().Layout().rowsPerPage;
  const auto foot = *Sheet().BoxOf(ItemNamed("制单人").id);
  QPoint handle = RowHandlesOf(Sheet())[0].box.center().toPoint();
  const double pixels = Sheet().PixelsPerTwip() * kTwipsPerMillimetre;
  Drag(handle, handle + QPoint(0, qRound(pixels)));
  EXPECT_NEAR(MillimetresOf(Sheet().Layout().rowHeight - height), 1, 0.2);
  const double grown = Sheet().Layout().rowHeight - height;
  Settle();
  EXPECT_NEAR(Sheet().BoxOf(ItemNamed("制单人").id)->top, foot.top + (rows - 1) * grown, 0.5)
      << "the foot stands below the last row";
  handle = RowHandlesOf(Sheet())[1].box.center().toPoint();
  Drag(handle,
       handle - QPoint(0, qRound(2 * Sheet().Layout().rowHeight * Sheet().PixelsPerTwip())));
  EXPECT_EQ(Sheet().Layout().rowsPerPage, rows - 2);
}

TEST_F(DesignerSheet, GuidesComeOutOfTheRulersAndGoOffTheSheet) {
  Sheet().DragGuide(Qt::Vertical, Sheet().viewport()->mapToGlobal(PixelAt(20, 20)));
  Sheet().DropGuide(Sheet().viewport()->mapToGlobal(PixelAt(62, 20)));
  ASSERT_EQ(Sheet().Aids().guides.x.size(), 1U);
  EXPECT_NEAR(MillimetresOf(Sheet().Aids().guides.x[0]), 62, 0.2);
  Drag(PixelAt(62, 131), PixelAt(-5, 131));
  EXPECT_TRUE(Sheet().Aids().guides.x.empty());
}

TEST_F(DesignerSheet, AChoiceIsDroppedWithItsVariable) {
  const std::size_t items = Document().Current().items.Size();
  Drop({{ChoiceKind::kVariable}, "新变量", "FNewColumn", ItemSite::kHead}, PixelAt(100, 5));
  ASSERT_TRUE(accepted_);
  ASSERT_EQ(Document().Current().items.Size(), items + 1);
  const Box place = PlaceOf("新变量");
  EXPECT_NEAR(place.left, 100, 0.2);
  EXPECT_NEAR(place.top, 5, 0.2);
  EXPECT_EQ(VariableOf(Document().Current(), ItemNamed("新变量"))->Name(), "FNewColumn");
  Trigger("undo");
  EXPECT_EQ(Document().Current().items.Size(), items);
  EXPECT_FALSE(Document().CanUndo()) << "item and variable are one step";
}

TEST_F(DesignerSheet, TheBandUnderTheMouseDecidesWhereAChoiceGoes) {
  const auto rows = StripsOf(Sheet());
  const auto strip = std::ranges::find(rows, ItemSite::kRow, &BandStrip::site);
  ASSERT_NE(strip, rows.end());
  const Point inside{TwipsOf(100), strip->box.top + 20};
  Drop({{ChoiceKind::kText}, "行内文字", {}, std::nullopt}, Sheet().ToView(inside).toPoint());
  EXPECT_EQ(ItemNamed("行内文字").Site(), ItemSite::kRow);
}

TEST_F(DesignerSheet, WhatWouldDoNothingInABandIsRefused) {
  for (const ItemChoice& choice : ItemChoices()) {
    if (choice.WorksIn(ItemSite::kHead)) continue;
    Drop({choice, "x", {}, ItemSite::kHead}, PixelAt(100, 5));
    EXPECT_FALSE(accepted_) << choice.name;
  }
}

TEST_F(DesignerSheet, TheWheelZoomsAroundTheMouse) {
  const QPoint at = PixelOf("客户");
  const Point before = Sheet().ToSheet(at);
  QWheelEvent turn(at, Sheet().viewport()->mapToGlobal(at), {}, {0, 120}, Qt::NoButton,
                   Qt::ControlModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(Sheet().viewport(), &turn);
  EXPECT_NEAR(Sheet().Zoom(), 187.5, 0.1);
  EXPECT_NEAR(MillimetresOf(Sheet().ToSheet(at).x - before.x), 0, 0.5);
}

TEST_F(DesignerSheet, ValuesOnlyHidesWhatThePreprintedFormHas) {
  ASSERT_TRUE(Sheet().BoxOf(ItemNamed("江城万源百货商贸有限公司").id));
  Trigger("onlyValues");
  Settle();
  EXPECT_FALSE(Sheet().BoxOf(ItemNamed("江城万源百货商贸有限公司").id));
  EXPECT_TRUE(Sheet().BoxOf(ItemNamed("客户").id));
}

TEST_F(DesignerSheet, ItemsWithFindingsAreMarked) {
  const ItemId item = ItemNamed("客户").id;
  const auto corner = Sheet().ToView(*Sheet().BoxOf(item)).topRight().toPoint() + QPoint(-3, 2);
  Window().TheWorkspace().findings.Put({});
  const QColor before = Sheet().viewport()->grab().toImage().pixelColor(corner);
  Window().TheWorkspace().findings.Put({{.severity = FindingSeverity::kError,
                                         .item = item,
                                         .wrong = "x",
                                         .effect = "",
                                         .mend = ""}});
  const QColor after = Sheet().viewport()->grab().toImage().pixelColor(corner);
  EXPECT_NE(before, after);
  EXPECT_EQ(after, ColourOf(FindingSeverity::kError));
}

TEST_F(DesignerSheet, ItemsAreCopiedAndPastedAsOneStep) {
  Click(PixelOf("客户"));
  Click(PixelOf("地址"), Qt::ControlModifier);
  const std::size_t items = Document().Current().items.Size();
  Trigger("copy");
  Trigger("paste");
  EXPECT_EQ(Document().Current().items.Size(), items + 2);
  EXPECT_EQ(Selected().Items().size(), 2U);
  const Item* pasted = Document().Find(Selected().Items().front());
  EXPECT_NEAR(MillimetresOf(pasted->Place().left), PlaceOf("客户").left + 2, kExact);
  Trigger("undo");
  EXPECT_EQ(Document().Current().items.Size(), items);
  Trigger("paste");
  Trigger("cut");
  EXPECT_EQ(Document().Current().items.Size(), items);
}

TEST_F(DesignerSheet, ItemsAreAlignedAndDistributed) {
  Click(PixelOf("客户"));
  Click(PixelOf("结算方式"), Qt::ControlModifier);
  Trigger("alignTop");
  EXPECT_NEAR(PlaceOf("客户").top, PlaceOf("结算方式").top, kExact);
  Trigger("alignLeft");
  EXPECT_NEAR(PlaceOf("客户").left, PlaceOf("结算方式").left, kExact);
}

TEST_F(DesignerSheet, AnItemKeepsItsPlaceInAnotherBand) {
  const auto before = *Sheet().BoxOf(ItemNamed("制单人").id);
  Click(PixelOf("制单人"));
  Trigger("band1");
  Settle();
  EXPECT_EQ(ItemNamed("制单人").Site(), ItemSite::kHead);
  EXPECT_NEAR(Sheet().BoxOf(ItemNamed("制单人").id)->top, before.top, 0.1);
}

}  // namespace
}  // namespace td::designer
