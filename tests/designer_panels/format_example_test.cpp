// What a value prints as under a picture string, as a run prints it.
#include "designer/panels/format_example.h"

#include "panel_use.h"

namespace td::designer {
namespace {

class FormatExampleTest : public PanelUse {
 protected:
  FormatExample Example(const std::string& column, const Value& picture,
                        ItemSite site = ItemSite::kRow) {
    Format format = Document().Current();
    format.variables = {NewVariable("值", column)};
    Item item = NewItem(format, ItemKind::kText, site, {});
    item.row.Set("FObjectFieldName", std::string("值"));
    item.row.Set("FFormatString", picture);
    return ExampleOf(format, item, workspace_.data.get());
  }
};

TEST_F(FormatExampleTest, WithoutDataANumberIsMadeUp) {
  const FormatExample example = Example("FAmount", std::string("0.00"));
  EXPECT_FALSE(example.isFromData);
  EXPECT_EQ(example.value, "1234.5");
  EXPECT_EQ(example.text, "1234.50");
}

TEST_F(FormatExampleTest, APriceKeepsItsDecimals) {
  GiveData();
  EXPECT_EQ(Example("FPrice", std::string("0.00")).text, "0.036528");
}

TEST_F(FormatExampleTest, OnlyNumbersHaveAPicture) {
  GiveData();
  EXPECT_EQ(Example("FCustName", std::string("0.00")).use, PictureUse::kNotANumber);
  EXPECT_EQ(Example("FCustName", std::string("0.00")).text, "和平商店");
  EXPECT_EQ(Example("FDate", std::string("yyyy")).text, "2024-05-01");
}

TEST_F(FormatExampleTest, TheHeadPrintsValuesAsTheyCome) {
  GiveData();
  const FormatExample example = Example("FAmount", std::string("0.00"), ItemSite::kHead);
  EXPECT_EQ(example.use, PictureUse::kNotInHead);
  EXPECT_EQ(example.text, "1234.5");
}

TEST_F(FormatExampleTest, SumsAndCapitals) {
  EXPECT_EQ(Example("ftotalpage", std::string("#,##0.00")).text, "1,234.50");
  EXPECT_EQ(Example("FTOTALPAGEDX", std::string()).text, "壹仟贰佰叁拾肆圆伍角整");
  EXPECT_EQ(Example("ftotalpage", Null{}).use, PictureUse::kIsNull);
  EXPECT_EQ(Example("forderid", std::string("000")).use, PictureUse::kNoPicture);
}

TEST_F(FormatExampleTest, AFixedTextHasNone) {
  const Format& format = Document().Current();
  EXPECT_EQ(ExampleOf(format, *Document().Find(label_), nullptr).use, PictureUse::kFixedText);
}

}  // namespace
}  // namespace td::designer
