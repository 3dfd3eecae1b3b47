// The panel of an item: what is entered in its fields is what the format holds then.
#include "designer/panels/item_panel.h"

#include <QImage>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTemporaryDir>

#include "../qt/wheel.h"
#include "designer/model/sheet_layout.h"
#include "panel_use.h"

namespace td::designer {
namespace {

class ItemPanelTest : public PanelUse {
 protected:
  NumberBox& Field(const char* name) { return Named<NumberBox>(name); }
  QComboBox& List(const char* name) { return Named<QComboBox>(name); }
  [[nodiscard]] QString Shown(const char* name) { return Named<QLabel>(name).text(); }
};

TEST_F(ItemPanelTest, ShowsAndEntersMillimetres) {
  Open<ItemPanel>();
  workspace_.selection.Select({label_});
  EXPECT_EQ(Field("FLeft").text(), "80.0 mm");
  Type(Field("FLeft"), "79.85");
  EXPECT_NEAR(Number(label_, "FLeft"), TwipsOf(79.85), 0.01);
  EXPECT_EQ(Field("FLeft").text(), "79.85 mm");
}

TEST_F(ItemPanelTest, ANumberThatNobodyTouchesKeepsAllItsDigits) {
  Document().SetNumber({label_}, "FLeft", 1234.5678);
  const int before = Steps();
  Open<ItemPanel>();
  workspace_.selection.Select({label_});
  Field("FLeft").setFocus();
  QTest::keyClick(&Field("FLeft"), Qt::Key_Return);
  Field("FTop").setFocus();
  workspace_.selection.Select({value_});
  EXPECT_EQ(Steps(), before);
  EXPECT_EQ(Number(label_, "FLeft"), 1234.5678);
}

TEST_F(ItemPanelTest, TakesNegativePlaces) {
  Open<ItemPanel>();
  workspace_.selection.Select({label_});
  Type(Field("FTop"), "-12.5");
  EXPECT_NEAR(Number(label_, "FTop"), TwipsOf(-12.5), 0.01);
}

TEST_F(ItemPanelTest, ASpinThatGoesOnIsOneStepAndEndsWithTheFocus) {
  Open<ItemPanel>();
  workspace_.selection.Select({label_});
  Field("FLeft").setFocus();
  for (int i = 0; i < 5; ++i) QTest::keyClick(&Field("FLeft"), Qt::Key_Up);
  EXPECT_NEAR(Number(label_, "FLeft"), TwipsOf(80.5), 0.01);
  EXPECT_EQ(Steps(), 1);
  Field("FTop").setFocus();
  Field("FLeft").setFocus();
  QTest::keyClick(&Field("FLeft"), Qt::Key_Down);
  EXPECT_EQ(Steps(), 2);
}

TEST_F(ItemPanelTest, SeveralItemsShowWhatTheyShareAndChangeTogether) {
  Open<ItemPanel>();
  workspace_.selection.Select({label_, value_});
  EXPECT_EQ(Field("FLeft").text(), "mixed");
  EXPECT_EQ(Field("FFontSize").text(), "9 pt");
  Type(Field("FLeft"), "33.3");
  EXPECT_EQ(Field("FLeft").text(), "33.3 mm");
  EXPECT_NEAR(Number(label_, "FLeft"), TwipsOf(33.3), 0.01);
  EXPECT_NEAR(Number(value_, "FLeft"), TwipsOf(33.3), 0.01);
  Document().Undo();
  EXPECT_NEAR(Number(label_, "FLeft"), TwipsOf(80), 0.01);
  EXPECT_NEAR(Number(value_, "FLeft"), TwipsOf(20), 0.01);
  EXPECT_FALSE(Document().CanUndo());
}

TEST_F(ItemPanelTest, MixedFieldsThatAreOnlyPassedChangeNothing) {
  Open<ItemPanel>();
  workspace_.selection.Select({label_, value_});
  for (QWidget* field : panel_->findChildren<QWidget*>()) {
    if (field->focusPolicy() != Qt::NoFocus && field->isVisible()) field->setFocus();
  }
  EXPECT_FALSE(Document().CanUndo());
}

TEST_F(ItemPanelTest, AMixedFlagIsSetByTheFirstClick) {
  Document().SetNumber({label_}, "FFontBold", 1);
  Open<ItemPanel>();
  workspace_.selection.Select({label_, value_});
  auto& bold = Named<QCheckBox>("FFontBold");
  EXPECT_EQ(bold.checkState(), Qt::PartiallyChecked);
  bold.click();
  EXPECT_TRUE(RowOf(label_).Flag("FFontBold"));
  EXPECT_TRUE(RowOf(value_).Flag("FFontBold"));
  bold.click();
  EXPECT_FALSE(RowOf(label_).Flag("FFontBold"));
  EXPECT_FALSE(RowOf(value_).Flag("FFontBold"));
}

TEST_F(ItemPanelTest, AFlagMayBeStoredAsAText) {
  Document().Set({label_}, "FWordWrap", std::string("True"));
  Open<ItemPanel>();
  workspace_.selection.Select({label_});
  auto& wraps = Named<QCheckBox>("FWordWrap");
  EXPECT_TRUE(wraps.isChecked());
  wraps.click();
  EXPECT_FALSE(RowOf(label_).Flag("FWordWrap"));
}

TEST_F(ItemPanelTest, WhatWasTypedStaysWithTheItemForWhichItWas) {
  Open<ItemPanel>();
  workspace_.selection.Select({label_});
  Type(Field("FLeft"), "12", false);
  workspace_.selection.Select({value_});
  EXPECT_NEAR(Number(label_, "FLeft"), TwipsOf(12), 0.01);
  EXPECT_NEAR(Number(value_, "FLeft"), TwipsOf(20), 0.01);
  EXPECT_EQ(Field("FLeft").text(), "20.0 mm");
}

TEST_F(ItemPanelTest, FollowsWhatOthersChange) {
  Open<ItemPanel>();
  workspace_.selection.Select({label_});
  Document().Move({label_}, TwipsOf(1), 0);
  EXPECT_EQ(Field("FLeft").text(), "81.0 mm");
  Document().Undo();
  EXPECT_EQ(Field("FLeft").text(), "80.0 mm");
}

TEST_F(ItemPanelTest, AnotherBandKeepsTheItemWhereTheSheetShowsIt) {
  Open<ItemPanel>();
  workspace_.selection.Select({value_});
  const Box before = DrawnBox(LayoutOf(Document().Current()), *Document().Find(value_));
  List("FSite").setFocus();
  Choose(List("FSite"), 4);
  EXPECT_EQ(Document().Find(value_)->Site(), ItemSite::kFoot);
  const Box after = DrawnBox(LayoutOf(Document().Current()), *Document().Find(value_));
  EXPECT_NEAR(after.top, before.top, 0.01);
}

TEST_F(ItemPanelTest, ThePlaceOnTheSheetIsThereWhereABandMovesIt) {
  Open<ItemPanel>();
  workspace_.selection.Select({label_});
  EXPECT_FALSE(Field("SheetTop").isVisible());
  workspace_.selection.Select({picture_});
  ASSERT_TRUE(Field("SheetTop").isVisible());
  EXPECT_EQ(Field("SheetTop").text(), "114.0 mm");  // nine rows of 6 mm below its place
  Type(Field("SheetTop"), "120");
  EXPECT_NEAR(Number(picture_, "FTop"), TwipsOf(66), 0.1);  // the rows' height is rounded
}

TEST_F(ItemPanelTest, HidingAnItemComesUndone) {
  Open<ItemPanel>();
  workspace_.selection.Select({value_});
  const double left = Number(value_, "FLeft");
  auto& hidden = Named<QCheckBox>("Hidden");
  hidden.click();
  EXPECT_FALSE(IsDrawn(*Document().Find(value_)));
  EXPECT_TRUE(hidden.isChecked());
  hidden.click();
  EXPECT_TRUE(IsDrawn(*Document().Find(value_)));
  EXPECT_NEAR(Number(value_, "FLeft"), left, 0.01);
  workspace_.selection.Select({label_});
  EXPECT_FALSE(hidden.isEnabled());  // the head prints all of its items
}

TEST_F(ItemPanelTest, AnItemAtTheEdgeCanBeHidden) {
  Document().SetNumber({value_}, "FLeft", 0);
  Open<ItemPanel>();
  workspace_.selection.Select({value_});
  Named<QCheckBox>("Hidden").click();
  EXPECT_FALSE(IsDrawn(*Document().Find(value_)));
  Named<QCheckBox>("Hidden").click();
  EXPECT_EQ(Number(value_, "FLeft"), 0);
}

TEST_F(ItemPanelTest, ATextIsOneStepAndSeenAtEachLetter) {
  Open<ItemPanel>();
  workspace_.selection.Select({label_});
  auto& text = Named<QPlainTextEdit>("FObjectCaption");
  text.setFocus();
  text.selectAll();
  QTest::keyClicks(&text, "ab");
  EXPECT_EQ(Text(label_, "FObjectCaption"), "ab");
  QTest::keyClick(&text, Qt::Key_Return);
  QTest::keyClicks(&text, "c");
  EXPECT_EQ(Text(label_, "FObjectCaption"), "ab\nc");
  EXPECT_EQ(Steps(), 1);
}

TEST_F(ItemPanelTest, AVariableIsChosenByItsCaption) {
  Open<ItemPanel>();
  workspace_.selection.Select({value_});
  QComboBox& field = List("FObjectFieldName");
  EXPECT_EQ(field.currentData().toString(), "金额");
  Choose(field, 1);
  EXPECT_EQ(Text(value_, "FObjectFieldName"), "客户");
  EXPECT_EQ(Text(value_, "FObjectCaption"), "客户");  // it prints no label, still
  EXPECT_EQ(Steps(), 1);
  Choose(field, 0);
  EXPECT_EQ(Text(value_, "FObjectFieldName"), "");
  EXPECT_FALSE(RowOf(value_).Flag("FIsVariant"));
}

TEST_F(ItemPanelTest, ALabelThatIsItsOwnStaysBesideAnotherVariable) {
  Document().Set({value_}, "FObjectCaption", std::string("计："));
  Open<ItemPanel>();
  workspace_.selection.Select({value_});
  Choose(List("FObjectFieldName"), 1);
  EXPECT_EQ(Text(value_, "FObjectCaption"), "计：");
}

TEST_F(ItemPanelTest, ANameThatIsNoVariableIsSaid) {
  Document().Set({value_}, "FObjectFieldName", std::string("没有"));
  Open<ItemPanel>();
  workspace_.selection.Select({value_});
  EXPECT_EQ(List("FObjectFieldName").currentIndex(), -1);
  EXPECT_EQ(List("FObjectFieldName").placeholderText(), "没有");
}

TEST_F(ItemPanelTest, ThePictureStringShowsWhatTheFirstRowPrints) {
  GiveData();
  Open<ItemPanel>();
  workspace_.selection.Select({value_});
  QComboBox& picture = List("FFormatString");
  picture.setFocus();
  QTest::keyClicks(&picture, "#,##0.00");
  EXPECT_EQ(Text(value_, "FFormatString"), "#,##0.00");
  EXPECT_EQ(Shown("Example"), "First row: 1234.5 → 1,234.50");
  EXPECT_EQ(Steps(), 1);
}

TEST_F(ItemPanelTest, AFontThatIsMissingIsNamedWithWhatStandsIn) {
  Open<ItemPanel>();
  workspace_.selection.Select({label_});
  QComboBox& font = List("FFontName");
  font.setFocus();
  Type(font, "No Such Font");
  EXPECT_EQ(Text(label_, "FFontName"), "No Such Font");
  EXPECT_TRUE(Named<QLabel>("FontStandIn").isVisible());
  const QString family = Named<QLabel>("FontSample").font().families().front();
  EXPECT_EQ(Shown("FontStandIn"), "Not on this machine: " + family + " stands in.");
  Type(font, family);
  EXPECT_FALSE(Named<QLabel>("FontStandIn").isVisible());
}

TEST_F(ItemPanelTest, APictureIsSeenWithItsSize) {
  const QTemporaryDir folder;
  QImage image(200, 100, QImage::Format_RGB32);
  image.fill(Qt::blue);
  image.setDotsPerMeterX(3937);  // 100 dots per inch
  image.setDotsPerMeterY(3937);
  const QString path = folder.filePath("stamp.png");
  ASSERT_TRUE(image.save(path));
  Open<ItemPanel>();
  workspace_.selection.Select({picture_});
  EXPECT_EQ(Shown("PictureNote"), "No file is chosen.");
  Type(Named("FPicturePath"), path);
  EXPECT_EQ(Text(picture_, "FPicturePath"), path.toStdString());
  EXPECT_EQ(Shown("PictureNote"), "Prints at its natural size: 50.8 × 25.4 mm");
  EXPECT_FALSE(Named<QLabel>("Thumbnail").pixmap().isNull());
  Type(Named("FPicturePath"), path + "x");
  EXPECT_EQ(Shown("PictureNote"), "There is no such picture.");
}

TEST_F(ItemPanelTest, OnlyTheFieldsOfTheKindAreThere) {
  Open<ItemPanel>();
  workspace_.selection.Select({line_});
  EXPECT_TRUE(Named("Fborderwidth").isVisible());
  EXPECT_FALSE(Named("FFontName").isVisible());
  EXPECT_FALSE(Named("FPicturePath").isVisible());
  workspace_.selection.Select({line_, label_});
  EXPECT_TRUE(Named("FFontName").isVisible());
  workspace_.selection.Clear();
  EXPECT_FALSE(Named("FLeft").isVisible());
}

TEST_F(ItemPanelTest, AColumnThatTheTableLacksIsOff) {
  Format format = NewFormat(21, "窄表");
  format.itemColumns = std::make_shared<const ColumnNames>(
      std::vector<std::string>{"FSite", "FTypeID", "FLeft", "FTop", "FWidth", "FHeight",
                               "FObjectCaption", "FObjectFieldName"});
  Document().Reset(std::move(format));
  const ItemId item = Add(ItemKind::kText, ItemSite::kHead, {}, {}, "x");
  Open<ItemPanel>();
  workspace_.selection.Select({item});
  EXPECT_FALSE(Named("FAutoSize").isEnabled());
  EXPECT_FALSE(Named("FFormatString").isEnabled());
  EXPECT_TRUE(Named("FLeft").isEnabled());
}

TEST_F(ItemPanelTest, WhatIsNullIsNotShownAsANumber) {
  Document().Set({label_}, "FFontSize", Null{});
  Open<ItemPanel>();
  workspace_.selection.Select({label_});
  EXPECT_EQ(Field("FFontSize").text(), "not set");
  Type(Field("FFontSize"), "10.5");
  EXPECT_EQ(Number(label_, "FFontSize"), 10.5);
}

TEST_F(ItemPanelTest, TheWheelChangesOnlyTheFieldWithTheFocus) {
  Open<ItemPanel>();
  workspace_.selection.Select({label_});
  Field("FTop").setFocus();
  TurnWheelOver(Field("FLeft"));
  EXPECT_NEAR(Number(label_, "FLeft"), TwipsOf(80), 0.01);
  TurnWheelOver(Field("FTop"));
  EXPECT_NEAR(Number(label_, "FTop"), TwipsOf(9.9), 0.01);
}

TEST_F(ItemPanelTest, OutlivesNoListener) {
  Open<ItemPanel>();
  workspace_.selection.Select({label_});
  Type(Field("FLeft"), "12", false);
  panel_.reset();
  workspace_.selection.Select({value_});
  Document().Move({value_}, 1, 1);
}

}  // namespace
}  // namespace td::designer
