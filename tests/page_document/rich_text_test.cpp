#include "page_document/rich_text.h"

#include <gtest/gtest.h>

#include <string>

namespace td {
namespace {

FontRef Share(const TextFont& font) {
  return std::make_shared<const TextFont>(font);
}

std::vector<TextLine> Read(std::string_view rtf) {
  return ReadRichText(rtf, TextFont{"宋体", 10, false, false}, Share);
}

// The characters of all lines, "|" between lines.
std::string Characters(std::string_view rtf) {
  std::string text;
  for (const TextLine& line : Read(rtf)) {
    if (!text.empty()) text += "|";
    for (const TextRun& run : line) text += run.text;
  }
  return text;
}

TEST(RichText, TextThatIsNoRichTextIsPlain) {
  EXPECT_EQ(Characters("备注\r\n第二行"), "备注|第二行");
}

TEST(RichText, HidesItsTablesAndIgnorableGroups) {
  EXPECT_EQ(
      Characters(
          R"({\rtf1\ansi{\fonttbl{\f0 SimSun;}}{\colortbl;\red0;}{\*\generator x;}ab\par cd})"),
      "ab|cd");
}

TEST(RichText, ReadsCharactersOfItsCodePage) {
  EXPECT_EQ(Characters(R"({\rtf1\ansi\ansicpg936 \'bd\'f0\'b6\'ee OK})"), "金额 OK");
}

TEST(RichText, ReadsUnicodeAndSkipsItsFallback) {
  EXPECT_EQ(Characters(R"({\rtf1\uc1 \u37329?\u-26547 ?!\u-10179?\u-8704?})"), "金額!😀");
}

TEST(RichText, ReadsEscapedCharacters) {
  EXPECT_EQ(Characters(R"({\rtf1 \{a\\b\}})"), R"({a\b})");
}

TEST(RichText, FormattingEndsWithItsGroup) {
  const auto lines = Read(R"({\rtf1 a{\b b\i c\b0 d}e})");
  ASSERT_EQ(lines.size(), 1U);
  ASSERT_EQ(lines[0].size(), 5U);
  EXPECT_TRUE(lines[0][1].font->bold);
  EXPECT_FALSE(lines[0][1].font->italic);
  EXPECT_TRUE(lines[0][2].font->italic);
  EXPECT_FALSE(lines[0][3].font->bold);
  EXPECT_FALSE(lines[0][4].font->italic);
}

TEST(RichText, DamageGivesWhatCouldBeRead) {
  EXPECT_EQ(Characters("{\\rtf1 ab\\"), "ab");
  EXPECT_EQ(Characters("{\\rtf1 ab\\'"), std::string("ab") + '\0');
  EXPECT_EQ(Characters("{\\rtf1 }}}} ab"), " ab");
  EXPECT_EQ(Characters("{\\rtf1\\ansicpg99999 a\\fs99999999999999 b"), "ab");
  EXPECT_EQ(Characters("{\\rtf1\\ansicpg936 \\'ff\\'ffa"),
            "\xEF\xBF\xBD\xEF\xBF\xBD"
            "a");
}

TEST(RichText, PlainTextBreaksAtEveryKindOfLineEnd) {
  const auto lines = ReadPlainText("a\nb\rc\r\n\r\nd\n", Share({}));
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_EQ(lines[2][0].text, "c");
  EXPECT_EQ(lines[3][0].text, "");
  EXPECT_EQ(lines[4][0].text, "d");
}

}  // namespace
}  // namespace td
