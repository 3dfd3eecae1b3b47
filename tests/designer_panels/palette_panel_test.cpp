// The palette: what it offers, where it puts it, and what it keeps back.
#include "designer/panels/palette_panel.h"

#include <QLabel>
#include <QTreeWidget>

#include "panel_use.h"

namespace td::designer {
namespace {

class PaletteTest : public PanelUse {
 protected:
  PaletteTest() {
    workspace_.place = [this](const DroppedChoice& choice) { placed_.push_back(choice); };
  }
  QTreeWidget& Tree() { return Named<QTreeWidget>("Palette"); }
  QTreeWidgetItem& Entry(const QString& name) {
    const auto found = Tree().findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
    if (found.size() != 1) throw std::runtime_error("no entry " + name.toStdString());
    return *found.front();
  }
  QModelIndex IndexOf(const QString& name) {
    const QModelIndex first = Tree().model()->index(0, 0);
    const auto found = Tree().model()->match(first, Qt::DisplayRole, name, 1,
                                             Qt::MatchExactly | Qt::MatchRecursive);
    return found.front();
  }
  void Activate(const QString& name) {
    Tree().setFocus();
    Tree().setCurrentItem(&Entry(name));
    QTest::keyClick(&Tree(), Qt::Key_Return);
  }
  std::vector<DroppedChoice> placed_;
};

TEST_F(PaletteTest, AVariableIsPlacedByItsCaption) {
  Open<PalettePanel>();
  Activate("客户");
  ASSERT_EQ(placed_.size(), 1U);
  EXPECT_EQ(placed_.front().choice.kind, ChoiceKind::kVariable);
  EXPECT_EQ(placed_.front().caption, "客户");
  EXPECT_EQ(placed_.front().site, std::nullopt);
}

TEST_F(PaletteTest, EachChoiceMakesAnItemThatIsThatChoice) {
  Open<PalettePanel>();
  std::vector<QString> names;
  for (QTreeWidgetItemIterator entry(&Tree(), QTreeWidgetItemIterator::NoChildren); *entry;
       ++entry) {
    if ((*entry)->parent() != nullptr) names.push_back((*entry)->text(0));
  }
  EXPECT_EQ(names.size(), ItemChoices().size() + 2);
  for (const QString& name : names) Activate(name);
  ASSERT_EQ(placed_.size(), names.size());
  for (const DroppedChoice& choice : placed_) {
    const ItemId id = AddChoice(Document(), choice, ItemSite::kRow, UsualPlace(choice.choice, {}));
    const ItemChoice made = ChoiceOf(Document().Current(), *Document().Find(id));
    EXPECT_EQ(made.kind, choice.choice.kind) << choice.choice.name;
    EXPECT_EQ(made.name, choice.choice.name);
  }
}

TEST_F(PaletteTest, InABandItGoesThereOrSaysWhyNot) {
  Open<PalettePanel>();
  auto& band = Named<QComboBox>("PaletteBand");
  Choose(band, band.findData(1));
  Activate("Page number");
  ASSERT_EQ(placed_.size(), 1U);
  EXPECT_EQ(placed_.front().site, ItemSite::kHead);
  Activate("Page amount");
  EXPECT_EQ(placed_.size(), 1U);
  EXPECT_FALSE(Entry("Page amount").flags() & Qt::ItemIsDragEnabled);
  EXPECT_TRUE(Entry("Page number").flags() & Qt::ItemIsDragEnabled);
  EXPECT_EQ(Named<QLabel>("PaletteDescription").text(),
            "The head knows only the page number and the number of pages.");
  Choose(band, band.findData(4));
  Activate("Page amount");
  EXPECT_EQ(placed_.size(), 2U);
}

TEST_F(PaletteTest, WhatDoesntPrintEverywhereSaysWhere) {
  Open<PalettePanel>();
  EXPECT_EQ(Entry("Barcode of FUserBarCode").text(1), "Head");
  EXPECT_EQ(Entry("Quantity in two units").text(1), "Column head, Row");
  EXPECT_EQ(Entry("Page amount").text(1), "not Head");
  EXPECT_EQ(Entry("Page number").text(1), "");
}

TEST_F(PaletteTest, AFieldThatIsAVariableKeepsItsCaption) {
  Document().Do(AddVariable(Document().Current(), NewVariable("页", "FPAGENO")));
  Open<PalettePanel>();
  Activate("Page number");
  ASSERT_EQ(placed_.size(), 1U);
  EXPECT_EQ(placed_.front().caption, "页");
}

TEST_F(PaletteTest, SearchesByNameAndByColumn) {
  Open<PalettePanel>();
  Type(Named("PaletteFilter"), "FCustName");
  EXPECT_FALSE(Entry("客户").isHidden());
  EXPECT_TRUE(Entry("金额").isHidden());
  EXPECT_TRUE(Entry("Page number").isHidden());
}

TEST_F(PaletteTest, DragsWhatTheSheetUnderstands) {
  Open<PalettePanel>();
  const auto data = std::unique_ptr<QMimeData>(Tree().model()->mimeData({IndexOf("Line")}));
  ASSERT_TRUE(data);
  ASSERT_TRUE(ChoiceIn(*data));
  EXPECT_EQ(ChoiceIn(*data)->choice.kind, ChoiceKind::kLine);
}

}  // namespace
}  // namespace td::designer
