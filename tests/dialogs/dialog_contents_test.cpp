// What the dialogs hold on every platform, and what they say of their fields.
#include "dialogs/dialog_contents.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "dialogs/field_texts.h"

namespace td {
namespace {

TEST(DialogContentsTest, ADialogIsFoundByItsExactName) {
  ASSERT_NE(FindDialogContents("frmAdjuct"), nullptr);
  EXPECT_STREQ(FindDialogContents("frmAdjuct")->title, "套打设置");
  ASSERT_NE(FindDialogContents("frmAreaPrintSet"), nullptr);
  EXPECT_STREQ(FindDialogContents("frmAreaPrintSet")->title, "分库区打印设置");
  EXPECT_EQ(FindDialogContents("frmTdPrint"), nullptr);
  EXPECT_EQ(FindDialogContents("frmadjuct"), nullptr);
  EXPECT_EQ(FindDialogContents(""), nullptr);
}

TEST(DialogContentsTest, NoTwoControlsShareANameOrAnAccessKey) {
  for (const char* name : {"frmAdjuct", "frmAreaPrintSet"}) {
    const DialogContents& contents = *FindDialogContents(name);
    std::multiset<std::string> names;
    std::multiset<char> keys;
    for (const DialogField& field : contents.fields) {
      std::visit([&](const auto& kind) { names.insert(kind.name); }, field);
    }
    if (contents.options != nullptr) names.insert(contents.options->name);
    for (const CaptionedControl& box : contents.checkBoxes) names.insert(box.name);
    for (const CaptionedControl& button : {contents.confirm, contents.leave}) {
      names.insert(button.name);
      const std::string caption = button.caption;
      ASSERT_NE(caption.find('&'), std::string::npos) << caption;
      keys.insert(caption[caption.find('&') + 1]);
    }
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size()) << name;
    EXPECT_EQ(std::set<char>(keys.begin(), keys.end()).size(), keys.size()) << name;
  }
}

TEST(FieldTexts, ALengthIsNotedInMillimetresAsItWillBeUnderstood) {
  EXPECT_EQ(NoteOfLength("567"), "≈ 10.0 毫米");
  EXPECT_EQ(NoteOfLength("-567缇"), "≈ -10.0 毫米");
  EXPECT_EQ(NoteOfLength("abc"), "≈ 0.0 毫米");
  EXPECT_EQ(NoteOfLength(""), "");
  EXPECT_EQ(NoteOfLength("566800"), "≈ 9997.7 毫米");
  EXPECT_EQ(NoteOfLength("1e300"), "");
  EXPECT_EQ(NoteOfLength("-1e300"), "");
}

TEST(FieldTexts, AFieldIsCalledByItsLabelAndUnit) {
  EXPECT_EQ(DescriptionOf(ListField{"list", "套打格式："}), "套打格式");
  EXPECT_EQ(DescriptionOf(NumberField{"box", "每行高度：", kTwipsUnit}), "每行高度，单位缇");
  EXPECT_EQ(DescriptionOf(NumberField{"box", "份数"}), "份数");
}

TEST(FieldTexts, NothingButHyphensIsASeparator) {
  EXPECT_TRUE(IsSeparator("--------------------"));
  EXPECT_TRUE(IsSeparator("-"));
  EXPECT_FALSE(IsSeparator(""));
  EXPECT_FALSE(IsSeparator("--a--"));
}

}  // namespace
}  // namespace td
