// Where the lines and letters of a text lie, the same on every platform with the same fonts.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>

#include "laid_text.h"
#include "page_outputs/text_measures.h"

namespace td {
namespace {

FontRef Font(const std::string& name, double points, bool bold = false) {
  return std::make_shared<const TextFont>(TextFont{name, points, bold, false});
}

BoxText InBox(const std::string& text, double width, bool wordWrap,
              TextAlignment alignment = TextAlignment::kLeft) {
  return {text, 1000, 2000, width, 300, wordWrap, alignment, Font("宋体", 10)};
}

// The texts of the lines, by their base lines.
std::vector<std::string> Lines(const std::vector<LaidText>& placed) {
  std::vector<std::string> lines;
  double baseLine = -1;
  for (const LaidText& text : placed) {
    if (text.y != baseLine) lines.emplace_back();
    baseLine = text.y;
    lines.back() += text.text;
  }
  return lines;
}

double Width(const std::vector<LaidText>& placed) {
  return placed.back().x + placed.back().width - placed.front().x;
}

using Texts = std::vector<std::string>;

TEST(TextLayout, BoxesAlignTextAtTheirLeftMiddleAndRight) {
  const auto left = LaidOut(InBox("四个汉字", 3000, false));
  EXPECT_EQ(left.front().x, 1000);
  EXPECT_NEAR(Width(left), 4 * 200, 0.5);
  const auto centre = LaidOut(InBox("四个汉字", 3000, false, TextAlignment::kCentre));
  EXPECT_NEAR(centre.front().x, 1000 + (3000 - 800) / 2, 0.5);
  const auto right = LaidOut(InBox("四个汉字", 3000, false, TextAlignment::kRight));
  EXPECT_NEAR(right.front().x, 1000 + 3000 - 800, 0.5);
}

TEST(TextLayout, TextWiderThanItsBoxRunsOnFromItsAlignedEdge) {
  EXPECT_EQ(LaidOut(InBox("四个汉字", 300, false)).front().x, 1000);
  EXPECT_NEAR(LaidOut(InBox("四个汉字", 300, false, TextAlignment::kRight)).front().x, 500, 0.5);
  EXPECT_NEAR(LaidOut(InBox("四个汉字", 300, false, TextAlignment::kCentre)).front().x, 750, 0.5);
}

TEST(TextLayout, TextIsCentredVerticallyEvenWhereItIsHigherThanItsBox) {
  BoxText box = InBox("字", 1000, false);
  const double lineHeight = LineHeight({{"字", box.font}});
  const double fromTop = LaidOut(box).front().y - (box.top + (box.height - lineHeight) / 2);
  box.height = 20;
  EXPECT_NEAR(LaidOut(box).front().y, box.top + (20 - lineHeight) / 2 + fromTop, 1e-6);
}

TEST(TextLayout, LineBreaksSurviveWithAndWithoutWordWrap) {
  for (const bool wordWrap : {false, true}) {
    const BoxText box = InBox("甲\r\n乙\n丙\r丁\t戊", 3000, wordWrap);
    EXPECT_EQ(Lines(LaidOut(box)), (Texts{"甲", "乙", "丙", "丁 戊"})) << wordWrap;
  }
  EXPECT_EQ(Lines(LaidOut(InBox("一二三四五\n六", 100, false))), (Texts{"一二三四五", "六"}));
}

TEST(TextLayout, ALineBreakAtTheEndBeginsNoLine) {
  for (const bool wordWrap : {false, true}) {
    const double one = LaidOut(InBox("甲", 3000, wordWrap)).front().y;
    for (const char* text : {"甲\r\n", "甲\n", "甲\r"}) {
      EXPECT_NEAR(LaidOut(InBox(text, 3000, wordWrap)).front().y, one, 1e-6) << wordWrap;
    }
    const auto broken = LaidOut(InBox("\n甲\n\n", 3000, wordWrap));
    ASSERT_EQ(broken.size(), 1U);
    EXPECT_NEAR(broken.front().y, one, 1e-6) << "the middle one of three lines";
  }
}

TEST(TextLayout, TheLinesOfABoxAreCentredTogetherAndAlignedEachForItself) {
  const auto placed = LaidOut(InBox("一二三\n四", 3000, false, TextAlignment::kRight));
  ASSERT_EQ(placed.size(), 2U);
  for (const LaidText& text : placed) EXPECT_NEAR(text.x + text.width, 4000, 0.5);
  const double middle = LaidOut(InBox("一", 3000, false)).front().y;
  EXPECT_NEAR((placed[0].y + placed[1].y) / 2, middle, 1e-6);
}

TEST(TextLayout, ALineIsAsWideAsItsRuns) {
  const TextLine line = {{"四个汉字", Font("宋体", 10)}, {"大", Font("黑体", 20)}};
  EXPECT_NEAR(LineWidth(line), 4 * 200 + 400, 0.5);
  EXPECT_EQ(LineWidth({{"", Font("宋体", 10)}}), 0);
}

TEST(TextLayout, WithWordWrapTextBreaksInsideTheWidth) {
  EXPECT_EQ(Lines(LaidOut(InBox("一二三四五六七", 610, true))), (Texts{"一二三", "四五六", "七"}));
  EXPECT_EQ(Lines(LaidOut(InBox("one two three", 900, true))), (Texts{"one two", "three"}));
}

TEST(TextLayout, PunctuationStaysWithTheCharacterThatItBelongsTo) {
  EXPECT_EQ(Lines(LaidOut(InBox("一二三，四五", 610, true))), (Texts{"一二", "三，四", "五"}));
  EXPECT_EQ(Lines(LaidOut(InBox("一二（三四", 610, true))), (Texts{"一二", "（三四"}));
}

TEST(TextLayout, LinesBreakBehindHyphensAndNotInNumbers) {
  EXPECT_EQ(Lines(LaidOut(InBox("one-two", 500, true))), (Texts{"one-", "two"}));
  EXPECT_EQ(Lines(LaidOut(InBox("ab 1,234.50", 900, true))), (Texts{"ab", "1,234.50"}));
  EXPECT_EQ(Lines(LaidOut(InBox("金额￥12.50元", 790, true))), (Texts{"金额", "￥12.50", "元"}));
}

TEST(TextLayout, WordsThatAreWiderThanTheBoxBreakAnywhere) {
  const auto lines = Lines(LaidOut(InBox("ABCDEFGHIJKLMNOP", 500, true)));
  ASSERT_GT(lines.size(), 2U);
  std::string joined;
  for (const std::string& line : lines) joined += line;
  EXPECT_EQ(joined, "ABCDEFGHIJKLMNOP");
  for (const LaidText& line : LaidOut(InBox("ABCDEFGHIJKLMNOP", 500, true))) {
    EXPECT_LE(line.width, 501);
  }
}

TEST(TextLayout, ABoxNarrowerThanACharacterHasOneOnEachLine) {
  EXPECT_EQ(Lines(LaidOut(InBox("一二", 10, true))), (Texts{"一", "二"}));
  EXPECT_EQ(Lines(LaidOut(InBox("一二", -500, true))), (Texts{"一", "二"}));
}

TEST(TextLayout, LineBreaksBreakWrappedTextAndEmptyLinesKeepTheirHeight) {
  const auto placed = LaidOut(InBox("一\r\n\r\n二", 1000, true));
  ASSERT_EQ(placed.size(), 2U);
  EXPECT_NEAR(placed[1].y - placed[0].y, 2 * LineHeight({{"", Font("宋体", 10)}}), 1e-6);
}

TEST(TextLayout, WrappedTextIsAlignedLineByLineWithoutTheBlanksAtTheirEnds) {
  const auto placed = LaidOut(InBox("one two three", 900, true, TextAlignment::kRight));
  ASSERT_EQ(placed.size(), 2U);
  EXPECT_NEAR(placed[0].x + placed[0].width, 1900, 0.5);
  EXPECT_NEAR(placed[1].x + placed[1].width, 1900, 0.5);
}

TEST(TextLayout, ALongTextWrapsInReasonableTime) {
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += "字";
  EXPECT_EQ(Lines(LaidOut(InBox(text, 2010, true))).size(), 10'000U);
}

// The lines of a word are all of it, in its order, and none is wider than the box. A shaped letter
// may be wider at a line's end than inside the word.
void ExpectWholeWord(const std::string& word, double width, double tolerance) {
  const auto placed = LaidOut(InBox(word, width, true));
  std::string joined;
  double widest = 0;
  for (const LaidText& line : placed) {
    joined += line.text;
    widest = std::max(widest, line.width);
  }
  EXPECT_TRUE(joined == word);
  EXPECT_LE(widest, width + tolerance);
  EXPECT_GT(widest, width / 2);
}

std::string Repeated(const std::string& unit, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += unit;
  return text;
}

// So long that a search through the whole word for each line would not come to its end.
TEST(TextLayout, AWordOfMillionsOfLettersBreaksIntoLines) {
  ExpectWholeWord(Repeated("abc", 800'000), 2010, 1);
}

TEST(TextLayout, AShapedWordOfManyLettersBreaksIntoLines) {
  ExpectWholeWord(Repeated("ابت", 200'000), 2010, 200);
}

TEST(TextLayout, AShapedTextBreaksInTheSamePlacesWhateverItsLengthIs) {
  const std::string unit = "مرحبا بالعالم ";
  const auto few = Lines(LaidOut(InBox(Repeated(unit, 50), 1000, true)));
  const auto many = Lines(LaidOut(InBox(Repeated(unit, 1000), 1000, true)));
  EXPECT_EQ(many.size(), 20 * few.size());
  EXPECT_EQ(std::set<std::string>(many.begin(), many.end()),
            std::set<std::string>(few.begin(), few.end()));
}

TEST(TextLayout, AShapedLineMayBeLongerThanAnyOtherText) {
  EXPECT_EQ(LaidOut(InBox(Repeated("ابت", 3000), 9'000'000, true)).size(), 1U);
}

TEST(TextLayout, BlanksThatDoNotBreakAreNoWorkForEachLetter) {
  EXPECT_EQ(Lines(LaidOut(InBox(Repeated("\u00A0", 600'000) + "x", 2010, true))), Texts{"x"});
}

TEST(TextLayout, TextAtAPointStartsThereIsCentredOnItOrEndsThere) {
  PointText text{{{{"四个汉字", Font("宋体", 10)}}}, {300}, 5000, 1000, TextAlignment::kLeft};
  EXPECT_EQ(LaidOut(text).front().x, 5000);
  text.alignment = TextAlignment::kCentre;
  EXPECT_NEAR(LaidOut(text).front().x, 4600, 0.5);
  text.alignment = TextAlignment::kRight;
  EXPECT_NEAR(LaidOut(text).front().x, 4200, 0.5);
}

TEST(TextLayout, RunsOfALineStandBesideEachOtherOnOneBaseLine) {
  const PointText text{
      {{{"小", Font("宋体", 10)}, {"大", Font("黑体", 20)}}}, {600}, 0, 0, TextAlignment::kLeft};
  const auto placed = LaidOut(text);
  ASSERT_EQ(placed.size(), 2U);
  EXPECT_NEAR(placed[1].x, 200, 0.5);
  EXPECT_EQ(placed[0].y, placed[1].y);
}

TEST(TextLayout, DigitsOfAFontAreEquallyWideSoThatColumnsLineUp) {
  for (const char* name : {"宋体", "黑体", "楷体", "仿宋", "Arial", "Times New Roman"}) {
    for (const bool bold : {false, true}) {
      BoxText box = InBox("1111.11", 3000, false);
      box.font = Font(name, 10, bold);
      const double ones = Width(LaidOut(box));
      box.text = "8888.88";
      EXPECT_NEAR(Width(LaidOut(box)), ones, 1) << name;
    }
  }
}

TEST(TextLayout, CharactersThatTheFontLacksComeFromAnother) {
  BoxText box = InBox("Arial 中文", 3000, false);
  box.font = Font("Arial", 10);
  const auto placed = LaidOut(box);
  ASSERT_EQ(placed.size(), 2U);
  EXPECT_EQ(placed[0].text, "Arial ");
  EXPECT_EQ(placed[1].text, "中文");
  EXPECT_EQ(placed[1].letters, 2U);
  EXPECT_NEAR(placed[1].x, placed[0].x + placed[0].width, 1e-6);
}

TEST(TextLayout, TextThatNeedsShapingIsLeftToTheOutput) {
  const auto placed = LaidOut(InBox("e\xCC\x81tude", 3000, false));
  ASSERT_EQ(placed.size(), 1U);
  EXPECT_EQ(placed[0].letters, 0U);
  EXPECT_GT(placed[0].width, 300);
}

TEST(TextLayout, CharactersThatNoFontHasBecomeQuestionMarks) {
  EXPECT_EQ(Lines(LaidOut(InBox("甲\xF3\xB0\x80\x80乙", 3000, false))), (Texts{"甲?乙"}));
}

TEST(TextLayout, ControlCharactersShowNothingAndBrokenUtf8DoesNotMatter) {
  EXPECT_EQ(Lines(LaidOut(InBox(std::string("a\0b\x01"
                                            "c",
                                            5),
                                3000, false))),
            (Texts{"abc"}));
  EXPECT_EQ(LaidOut(InBox("\xFF\xFE", 3000, false)).size(), 1U);
  EXPECT_TRUE(LaidOut(InBox("\x01", 3000, true)).empty());
}

TEST(TextLayout, SizesFromNothingToHugeAreLaidOut) {
  BoxText box = InBox("字", 3000, false);
  box.font = Font("宋体", 0);
  EXPECT_LT(LaidOut(box).front().width, 2);
  box.font = Font("宋体", 2000);
  EXPECT_NEAR(LaidOut(box).front().width, 40'000, 1);
}

}  // namespace
}  // namespace td
