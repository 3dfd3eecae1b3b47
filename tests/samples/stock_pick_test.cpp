// The pick lists of the sample, printed by stock area: what the warehouse counts on, in plain
// figures.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "found_text.h"
#include "printed_document.h"
#include "sample_printing.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

class StockPick : public ::testing::TestWithParam<SampleEngine> {
 protected:
  [[nodiscard]] static std::filesystem::path Print(const std::string& name,
                                                   const std::string& option) {
    return PrintedSample(GetParam(), SampleNamed(name), option);
  }

  [[nodiscard]] static std::vector<PrintedPage> Pages(const std::string& name) {
    return ReadPages(Print(name, "--pdf"));
  }

  // Page by page what is written in an area of the sheet.
  static Texts Inside(const std::vector<PrintedPage>& pages, const Area& area) {
    Texts texts;
    for (const PrintedPage& page : pages) texts.push_back(TextInside(page, area));
    return texts;
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, StockPick, kEachEngine, NameOfEngine);

bool Contains(const PrintedPage& page, const std::string& text) {
  for (const PrintedWord& word : page.words) {
    if (word.text.find(text) != std::string::npos) return true;
  }
  return false;
}

TEST_P(StockPick, EachAreaHasItsOwnSheetWithItsHead) {
  const std::vector<PrintedPage> pages = Pages("stock-pick-40-lines");
  EXPECT_EQ(Inside(pages, {700, 1400, 3800, 420}),
            (Texts{"A区粮油", "B区饮料", "C区调味", "D区日化"}))
      << "the twelve rows of the first area fill its sheet, and no empty one follows";
  EXPECT_EQ(Inside(pages, {7850, 1480, 1400, 320}),
            (Texts{"赵铁柱", "高小军", "罗秀英", "沈国平"}));
  EXPECT_EQ(Inside(pages, {700, 2280, 450, 360}), (Texts{"1", "13", "21", "32"}));
  EXPECT_EQ(Inside(pages, {9850, 960, 300, 280}), (Texts{"1", "2", "3", "4"}));
  EXPECT_EQ(Inside(pages, {10650, 960, 300, 280}), (Texts{"4", "4", "4", "4"}));
}

TEST_P(StockPick, ASheetSumsWhatIsPickedThere) {
  const std::vector<PrintedPage> pages = Pages("stock-pick-40-lines");
  EXPECT_EQ(Inside(pages, {7460, 2640 + 11 * 360, 1330, 360}),
            (Texts{"48件", "94件", "21件", "41件"}));
}

TEST_P(StockPick, TheFootStandsOnceBelowTheLastSheet) {
  const std::vector<PrintedPage> pages = Pages("stock-pick-40-lines");
  EXPECT_EQ(Inside(pages, {700, 3600 + 11 * 360, 10500, 300}),
            (Texts{"", "", "", "各库区至此拣完，请将各页连同货物一并送复核台。"}));
}

TEST_P(StockPick, TwoNotesArePickedInOneWalk) {
  const std::vector<PrintedPage> pages = Pages("stock-pick-two-notes");
  ASSERT_EQ(pages.size(), 8U);
  EXPECT_EQ(Inside(pages, {700, 1400, 3800, 420}),
            (Texts{"A区粮油", "A区粮油", "B区饮料", "B区饮料", "C区调味", "C区调味", "D区日化",
                   "D区日化"}));
  EXPECT_TRUE(Contains(pages[0], "XC-2403-0011"));
  EXPECT_TRUE(Contains(pages[0], "XC-2403-0012"));
}

TEST_P(StockPick, AHeadThatIsPrintedOnceIsNotRepeatedForANewArea) {
  const std::vector<PrintedPage> pages = Pages("stock-pick-accounts");
  ASSERT_EQ(pages.size(), 5U);
  for (std::size_t page = 0; page < pages.size(); ++page) {
    EXPECT_EQ(Contains(pages[page], "客户"), page == 0) << page;
  }
  // The later sheets begin 1440 twips higher and hold four rows more.
  EXPECT_EQ(TextInside(pages[0], {8900, 1580, 2300, 300}), "页码：1");
  EXPECT_EQ(TextInside(pages[4], {8900, 1580 - 1440, 2300, 300}), "页码：5");
  EXPECT_EQ(TextInside(pages[1], {700, 2280 - 1440, 450, 360}), "9");
  EXPECT_EQ(TextInside(pages[2], {700, 2280 - 1440, 450, 360}), "13");
}

TEST_P(StockPick, TaxAndAmountsAreSummedFromTheirColumns) {
  const std::vector<PrintedPage> pages = Pages("stock-pick-accounts");
  ASSERT_EQ(pages.size(), 5U);
  const double below = 2640 - 1440 + 8 * 360;  // nine rows
  EXPECT_EQ(TextInside(pages[4], {7710, below, 1130, 360}), "7,248.40");
  EXPECT_EQ(TextInside(pages[4], {8960, below, 880, 360}), "833.89");
  EXPECT_EQ(TextInside(pages[4], {9960, below, 1180, 360}), "6,414.51");
  EXPECT_EQ(TextInside(pages[4], {2700, below + 360, 6000, 360}), "柒仟贰佰肆拾捌圆肆角整");
}

// A reader of the PDF takes the second foot for bold print, so the pages are counted as HTML.
TEST_P(StockPick, AFootOnEverySheetStandsTwiceOnTheLast) {
  const std::ifstream file(Print("stock-pick-accounts", "--html"));
  std::stringstream content;
  content << file.rdbuf();
  const std::string html = content.str();
  int feet = 0;
  for (std::size_t at = html.find("第一联"); at != std::string::npos;
       at = html.find("第一联", at + 1)) {
    ++feet;
  }
  EXPECT_EQ(feet, 5 + 1);
}

}  // namespace
}  // namespace td
