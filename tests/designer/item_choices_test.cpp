#include "designer/model/item_choices.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace td::designer {
namespace {

ItemChoice ChoiceNamed(std::string_view name) {
  const auto found = std::ranges::find(ItemChoices(), name, &ItemChoice::name);
  return found == ItemChoices().end() ? ItemChoice{} : *found;
}

TEST(ItemChoicesTest, HoldEachKindOnceAndAllImagesAndFields) {
  EXPECT_EQ(std::ranges::count(ItemChoices(), ChoiceKind::kImage, &ItemChoice::kind), 4);
  EXPECT_GT(std::ranges::count(ItemChoices(), ChoiceKind::kComputed, &ItemChoice::kind), 30);
  for (const ChoiceKind kind : {ChoiceKind::kText, ChoiceKind::kLine, ChoiceKind::kPicture}) {
    EXPECT_EQ(std::ranges::count(ItemChoices(), kind, &ItemChoice::kind), 1);
  }
}

TEST(ItemChoicesTest, KnowTheBandsInWhichEachWorks) {
  EXPECT_TRUE(ChoiceNamed("<用户条码图>").WorksIn(ItemSite::kHead));
  EXPECT_FALSE(ChoiceNamed("<用户条码图>").WorksIn(ItemSite::kRow));
  EXPECT_FALSE(ChoiceNamed("<商品图片>").WorksIn(ItemSite::kHead));
  EXPECT_TRUE(ChoiceNamed("<商品图片>").WorksIn(ItemSite::kFoot));
  EXPECT_TRUE(ChoiceNamed("fpageno").WorksIn(ItemSite::kHead));
  EXPECT_FALSE(ChoiceNamed("ftotalpage").WorksIn(ItemSite::kHead));
  EXPECT_TRUE(ChoiceNamed("ftotalpage").WorksIn(ItemSite::kAfterRows));
  EXPECT_TRUE(ChoiceNamed("fcomplexqty").WorksIn(ItemSite::kRow));
  EXPECT_FALSE(ChoiceNamed("fcomplexqty").WorksIn(ItemSite::kAfterRows));
  EXPECT_FALSE(ItemChoice{}.WorksIn(static_cast<ItemSite>(6)));
}

TEST(ItemChoicesTest, AnItemIsRecognisedAsWhatItWasMadeFrom) {
  Format format = NewFormat(21, "test");
  format.variables.push_back(NewVariable("页码", "FPageNo"));
  format.variables.push_back(NewVariable("客户", "FCustName"));
  const auto made = [&](const ItemChoice& choice, const std::string& caption) {
    return ChoiceOf(format, NewItemOf(format, choice, caption, ItemSite::kHead, {}));
  };
  for (const ItemChoice& choice : ItemChoices()) {
    if (choice.kind == ChoiceKind::kComputed) continue;
    const ItemChoice again = made(choice, "x");
    EXPECT_EQ(again.kind, choice.kind);
    EXPECT_EQ(again.name, choice.name);
  }
  EXPECT_EQ(made(ChoiceNamed("fpageno"), "页码").name, "fpageno");
  EXPECT_EQ(made({ChoiceKind::kVariable}, "客户").kind, ChoiceKind::kVariable);
}

}  // namespace
}  // namespace td::designer
