// The sheet that uses every field and every image: beside each name stands the value that its
// author worked out by hand, and barcodes and pictures are what they should be.
#include <gtest/gtest.h>

#include <cmath>

#include "found_text.h"
#include "printed_document.h"
#include "sample_printing.h"

namespace td {
namespace {

using Texts = std::vector<std::string>;

// What stands beside the name on the first page, with three rows, and on the second, with one.
struct FieldValues {
  std::string field;
  std::string first;
  std::string second;
};

// Names of one column of names; the value stands from `left` to `right` on the name's line.
struct Block {
  double nameLeft;
  double left;
  double right;
  std::vector<FieldValues> fields;
};

const std::vector<Block>& Blocks() {
  static const std::vector<Block> blocks = {
      {760,
       4650,
       5950,
       {{"ftotalpage", "709.26", "537.50"},
        {"ftotalpagetax", "81.60", "61.84"},
        {"ftotalpagenotaxamount", "627.67", "475.66"},
        {"ftotalpage_retailamount", "1,200.50", "875.00"},
        {"ftotalpage_bzkamount", "752.00", "600.00"},
        {"ftotalpage_credit", "673.50", "537.50"},
        {"ftotalpage_debit", "340.76", "266.60"},
        {"FPurAmount_TotalPage", "675.50", "537.50"},
        {"FSaleAmount_TotalPage", "342.76", "266.60"},
        {"FSkd_TotalPage", "155.50", "0.00"},
        {"FFkd_TotalPage", "206.50", "300.00"}}},
      {6010,
       9900,
       11200,
       {{"ftotalpage_1", "709.26", "1,246.76"},
        {"ftotalpagetax_1", "81.60", "143.43"},
        {"ftotalpagenotaxamount_1", "627.67", "1,103.33"},
        {"FSumTotalPage", "709.26", "1,246.76"},
        {"ftotalpageselffreight", "37.50", "57.50"},
        {"FTotalPageFreight_Amount", "19.50", "28.50"},
        {"ftotalpage_mainqty_1", "2", "27"},
        {"ftotalpage_mainqty", "2", "25"},
        {"ftotalpage_slaveqty", "503", "0"},
        {"ftotalpage_qty", "641", "250"},
        {"ftotalpage_sumqty", "641", "250"}}},
      {760,
       5200,
       11200,
       {{"ftotalpagedx", "柒佰零玖圆贰角陆分", "伍佰叁拾柒圆伍角整"},
        {"FTotalPage_1_Dx", "柒佰零玖圆贰角陆分", "壹仟贰佰肆拾陆圆柒角陆分"},
        {"ftotalpagetax_1_dx", "捌拾壹圆陆角整", "壹佰肆拾叁圆肆角叁分"},
        {"ftotalpagenotaxamount_1_dx", "陆佰贰拾柒圆陆角柒分", "壹仟壹佰零叁圆叁角叁分"},
        {"fsumamount_dx", "壹仟贰佰肆拾陆圆柒角陆分", "壹仟贰佰肆拾陆圆柒角陆分"},
        {"fsumretailamount_dx", "贰仟零柒拾伍圆伍角整", "贰仟零柒拾伍圆伍角整"},
        {"fsumtax_dx", "壹佰肆拾叁圆肆角叁分", "壹佰肆拾叁圆肆角叁分"},
        {"fsumnotaxamount_dx", "壹仟壹佰零叁圆叁角叁分", "壹仟壹佰零叁圆叁角叁分"},
        {"FSumBzkAmount_Dx", "壹仟叁佰伍拾贰圆整", "壹仟叁佰伍拾贰圆整"},
        {"fearnest_dx", "壹仟零伍圆叁角整", "壹仟零伍圆叁角整"}}}};
  return blocks;
}

constexpr double kRowTop = 3300;
constexpr double kRowHeight = 900;

class FieldSheet : public ::testing::TestWithParam<SampleEngine> {
 protected:
  void SetUp() override {
    pages_ = ReadPages(Pdf());
    ASSERT_EQ(pages_.size(), 2U);
  }

  [[nodiscard]] static std::filesystem::path Pdf() {
    return PrintedSample(GetParam(), SampleNamed("field-sheet"), "--pdf");
  }

  // What is written in a column of the detail rows, row by row.
  [[nodiscard]] Texts Column(std::size_t page, double left, double right) const {
    Texts texts;
    for (int row = 0; row < 3; ++row) {
      texts.push_back(
          TextInside(pages_[page], {left, kRowTop + row * kRowHeight, right - left, kRowHeight}));
    }
    return texts;
  }

  // The text in the value's cell on the line of the name; fails the test without such a name.
  [[nodiscard]] std::string ValueBeside(std::size_t page, const Block& block,
                                        const std::string& field) const {
    for (const PrintedWord& word : pages_[page].words) {
      if (word.text != field || std::abs(word.area.left - block.nameLeft) > kTolerance) continue;
      const double top = CentreY(word.area) - 150;
      return TextInside(pages_[page], {block.left, top, block.right - block.left, 300});
    }
    ADD_FAILURE() << "no name " << field;
    return {};
  }

  std::vector<PrintedPage> pages_;
};

INSTANTIATE_TEST_SUITE_P(Engines, FieldSheet, kEachEngine, NameOfEngine);

TEST_P(FieldSheet, BesideTheNameOfEachSumStandsItsValue) {
  for (const Block& block : Blocks()) {
    for (const FieldValues& values : block.fields) {
      EXPECT_EQ(ValueBeside(0, block, values.field), values.first) << values.field;
      EXPECT_EQ(ValueBeside(1, block, values.field), values.second) << values.field;
    }
  }
}

TEST_P(FieldSheet, PageNumbersAndTheirTotalStandOnBothPages) {
  for (const std::size_t page : {0U, 1U}) {
    const std::string number = std::to_string(page + 1);
    EXPECT_EQ(TextInside(pages_[page], {10200, 480, 900, 280}), number) << "of the print";
    EXPECT_EQ(TextInside(pages_[page], {10200, 780, 400, 300}), "2") << "of all";
    EXPECT_EQ(TextInside(pages_[page], {2460, 13960, 600, 320}), number) << "of the bill";
  }
}

TEST_P(FieldSheet, RowsShowTheirNumberTheirQuantitiesAndAllDecimalsOfAPrice) {
  EXPECT_EQ(Column(0, 700, 1500), (Texts{"1", "2", "3"}));
  EXPECT_EQ(Column(0, 4400, 5900), (Texts{"3箱+5只", "500个", "1盒+2只"}));
  EXPECT_EQ(Column(0, 5900, 7400), (Texts{"2箱+5只", "", "3只"}));
  EXPECT_EQ(Column(0, 7400, 8900), (Texts{"1箱", "500个", ""}));
  EXPECT_EQ(Column(0, 8900, 10100), (Texts{"6.40", "0.036528", "21.50"}));
  EXPECT_EQ(Column(0, 10100, 11200), (Texts{"992.00", "18.26", "-301.00"}));
  EXPECT_EQ(Column(1, 700, 1500), (Texts{"4", "", ""}));
  EXPECT_EQ(Column(1, 4400, 5900), (Texts{"25条", "", ""}));
}

TEST_P(FieldSheet, AReaderDecodesEachBarcodeAtItsPlace) {
  const std::vector<std::pair<double, std::string>> barcodes = {
      {700, "ZD-2403-0001"}, {4450, "99-2403-0001"}, {8200, "110101-234234-1/6"}};
  for (const std::size_t page : {1U, 2U}) {
    for (const auto& [left, text] : barcodes) {
      EXPECT_EQ(ReadBarcode(Pdf(), page, {left, 1580, 3000, 800}), text);
    }
  }
}

TEST_P(FieldSheet, PicturesHaveTheirBoxOrTheirNaturalSize) {
  // 96 dots in 800 twips; 360 by 144 dots at their own 300 to the inch.
  const PrintedPicture goods{96, 96, 96 * 1440 / 800.0};
  const PrintedPicture mark{360, 144, 300};
  const std::vector<PrintedPicture> pictures = ReadPictures(Pdf());
  ASSERT_EQ(pictures.size(), 6U) << "a mark on each page, and four goods";
  int marks = 0;
  for (const PrintedPicture& picture : pictures) {
    const bool isMark = picture.width == mark.width;
    marks += isMark ? 1 : 0;
    const PrintedPicture& expected = isMark ? mark : goods;
    EXPECT_EQ(picture.width, expected.width);
    EXPECT_EQ(picture.height, expected.height);
    EXPECT_NEAR(picture.dotsPerInch, expected.dotsPerInch, 1);
  }
  EXPECT_EQ(marks, 2);
}

TEST_P(FieldSheet, TheMarksFrameStandsWhereItsItemSays) {
  constexpr int kInk = 110;
  const PageImage page(Pdf(), 1);
  constexpr double kLeft = 700;
  constexpr double kTop = 450;
  constexpr double kWidth = 1728;
  constexpr double kHeight = 691;
  constexpr double kInside = 14;  // half of the frame's thickness
  EXPECT_LT(page.DarkestNear(kLeft + kInside, kTop + kHeight / 2, 0), kInk);
  EXPECT_LT(page.DarkestNear(kLeft + kWidth - kInside, kTop + kHeight / 2, 0), kInk);
  EXPECT_LT(page.DarkestNear(kLeft + kWidth / 2, kTop + kInside, 0), kInk);
  EXPECT_LT(page.DarkestNear(kLeft + kWidth / 2, kTop + kHeight - kInside, 0), kInk);
  EXPECT_EQ(page.Ink({kLeft + kWidth + 20, kTop, 200, kHeight}), 0) << "nothing right of it";
  EXPECT_EQ(page.Ink({kLeft, kTop + kHeight + 20, kWidth, 100}), 0) << "nor below";
}

}  // namespace
}  // namespace td
