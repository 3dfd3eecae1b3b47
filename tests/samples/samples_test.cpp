// The sample bills, printed by tdprint into PDF files and read back by poppler: everything stands
// where the format's rows say, to a tenth of a millimetre.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "expected_pages.h"
#include "found_text.h"
#include "printed_document.h"
#include "sample_files.h"
#include "sample_format.h"
#include "sample_printing.h"
#include "text/characters.h"

namespace td {

// Names the sample in the list of tests and in messages.
void PrintTo(const SamplePrint& print, std::ostream* out) {
  *out << print.name;
}

namespace {

void ExpectText(const PrintedPage& page, const PlacedText& expected, BaseLines& baseLines) {
  if (expected.item.wraps) {
    EXPECT_EQ(TextInside(page, expected.area), WithoutBlanks(expected.text));
    return;
  }
  const auto words = FindText(page, expected);
  EXPECT_TRUE(words) << "“" << expected.text << "” is not at " << expected.area.left << ","
                     << expected.area.top << " " << expected.area.width << "x"
                     << expected.area.height;
  if (!words) return;
  for (const PrintedWord& word : *words) baseLines.Add(expected, word);
}

std::map<std::string, int> CountedCharacters(std::string_view text) {
  std::map<std::string, int> count;
  while (!text.empty()) ++count[std::string(TakeCharacter(text))];
  return count;
}

// The characters that `one` has more often than `other`.
std::string CharactersOfOneOnly(const std::string& one, const std::string& other) {
  const std::map<std::string, int> others = CountedCharacters(other);
  std::string surplus;
  for (const auto& [character, count] : CountedCharacters(one)) {
    const auto found = others.find(character);
    for (int i = found == others.end() ? 0 : found->second; i < count; ++i) surplus += character;
  }
  return surplus;
}

constexpr int kInk = 110;
constexpr int kPaper = 250;

void ExpectLine(const PageImage& page, const PlacedLine& line) {
  for (const double share : {0.02, 0.37, 0.71, 0.98}) {
    const double x = line.area.left + line.area.width * share;
    const double y = line.area.top + line.area.height * share;
    EXPECT_LT(page.DarkestNear(x, y, 0), kInk) << "no line at " << x << "," << y;
  }
}

void ExpectNoLine(const PageImage& page, const PlacedLine& line) {
  const double x = line.area.left + line.area.width * 0.02;
  const double y = line.area.top + line.area.height * 0.02;
  EXPECT_GT(page.DarkestNear(x, y, 1), kPaper) << "a line at " << x << "," << y;
}

std::string BarcodeText(const PlacedImage& image) {
  if (image.shows == "<单号条码图>") return image.row.Text("fbillno");
  if (image.shows == "<随机条码图>") return image.row.Text("fbillnobarcode");
  if (image.shows == "<用户条码图>") return image.row.Text("fuserbarcode");
  return {};
}

using PrintOnEngine = std::tuple<SampleEngine, SamplePrint>;

class SampleBill : public ::testing::TestWithParam<PrintOnEngine> {
 protected:
  void SetUp() override {
    const SamplePrint& print = std::get<SamplePrint>(GetParam());
    format_ = ReadFormat(SampleFile(), print.billType, print.format);
    expected_ = ExpectPages(format_, QueryRows(SampleFile(), print.data),
                            {.onlyVariables = print.onlyVariant,
                             .blankRows = static_cast<std::size_t>(print.blankRows),
                             .byArea = print.byArea});
    printed_ = ReadPages(Pdf());
    ASSERT_EQ(printed_.size(), expected_.size());
  }

  static void ExpectImage(const PageImage& page, const PlacedImage& image) {
    const std::string goods = image.row.Text("fitemid");
    const double ink = page.Ink(image.area);
    if (image.shows == "<商品图片>" &&
        QueryRows(SampleFile(), "select 1 from t_icitem_Picture where FItemID=" + goods).empty()) {
      EXPECT_EQ(ink, 0) << "goods " << goods;
      return;
    }
    EXPECT_GT(ink, 0.08) << image.shows << " " << goods;
    EXPECT_LT(ink, 0.9) << image.shows << " " << goods;
  }

  [[nodiscard]] static std::filesystem::path Pdf() {
    return PrintedSample(std::get<SampleEngine>(GetParam()), std::get<SamplePrint>(GetParam()),
                         "--pdf");
  }

  SampleFormat format_;
  std::vector<ExpectedPage> expected_;
  std::vector<PrintedPage> printed_;
};

TEST_P(SampleBill, WritesEveryTextAtItsPlaceAndNothingElse) {
  BaseLines baseLines;
  for (std::size_t number = 0; number < expected_.size(); ++number) {
    SCOPED_TRACE("page " + std::to_string(number + 1));
    EXPECT_NEAR(printed_[number].width, format_.paperWidth, kTolerance);
    EXPECT_NEAR(printed_[number].height, format_.paperHeight, kTolerance);
    std::string expectedText;
    for (const PlacedText& text : expected_[number].texts) {
      if (WithoutBlanks(text.text).empty()) continue;
      ExpectText(printed_[number], text, baseLines);
      expectedText += WithoutBlanks(text.text);
    }
    for (const PlacedImage& image : expected_[number].images) expectedText += BarcodeText(image);
    std::string printedText;
    for (const PrintedWord& word : printed_[number].words) printedText += WithoutBlanks(word.text);
    EXPECT_EQ(CharactersOfOneOnly(printedText, expectedText), "") << "printed too much";
    EXPECT_EQ(CharactersOfOneOnly(expectedText, printedText), "") << "not printed";
  }
  EXPECT_EQ(baseLines.Uneven(), "");
}

TEST_P(SampleBill, CarriesTheGlyphsThatItNeedsAndNoMore) {
  constexpr std::uintmax_t kWholeFont = 2'000'000;
  static const std::regex embedded(" yes (yes|no) +yes +[0-9]+ +[0-9]+ *$");
  const std::vector<std::string> fonts = ReadFonts(Pdf());
  EXPECT_FALSE(fonts.empty());
  for (const std::string& font : fonts) {
    EXPECT_TRUE(std::regex_search(font, embedded)) << "not embedded: " << font;
  }
  EXPECT_LT(std::filesystem::file_size(Pdf()), kWholeFont);
}

TEST_P(SampleBill, DrawsItsLinesBarcodesAndPicturesAndNoLineOfThePreprintedForm) {
  for (std::size_t number = 0; number < expected_.size(); ++number) {
    SCOPED_TRACE("page " + std::to_string(number + 1));
    const PageImage image(Pdf(), number + 1);
    for (const PlacedLine& line : expected_[number].lines) ExpectLine(image, line);
    for (const PlacedLine& line : expected_[number].leftOut) ExpectNoLine(image, line);
    for (const PlacedImage& picture : expected_[number].images) ExpectImage(image, picture);
  }
}

INSTANTIATE_TEST_SUITE_P(Samples, SampleBill,
                         ::testing::Combine(kEachEngine,
                                            ::testing::ValuesIn(ReadSamplePrints(SampleFolder()))),
                         [](const ::testing::TestParamInfo<PrintOnEngine>& print) {
                           std::string name = NameOf(std::get<SampleEngine>(print.param)) + "_" +
                                              std::get<SamplePrint>(print.param).name;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

TEST(SamplePrints, OneSheetUsesEveryFieldAndEveryImage) {
  std::map<std::string, bool> used;
  bool usesPictureFile = false;
  const SamplePrint print = SampleNamed("field-sheet");
  for (const SampleItem& item : ReadFormat(SampleFile(), print.billType, print.format).items) {
    used[item.field] = true;
    used[item.variable] = true;
    usesPictureFile = usesPictureFile || item.kind == Kind::kPicture;
  }
  EXPECT_TRUE(usesPictureFile);
  for (const char* name : {"fpageno",
                           "ftotalpageno",
                           "fsumamount_dx",
                           "fsumretailamount_dx",
                           "fsumtax_dx",
                           "fsumnotaxamount_dx",
                           "fsumbzkamount_dx",
                           "ftotalpage",
                           "ftotalpage_1",
                           "ftotalpagedx",
                           "ftotalpage_1_dx",
                           "fsumtotalpage",
                           "ftotalpagetax",
                           "ftotalpage_retailamount",
                           "ftotalpage_bzkamount",
                           "ftotalpagetax_1",
                           "ftotalpagetax_1_dx",
                           "ftotalpagenotaxamount",
                           "ftotalpagenotaxamount_1",
                           "ftotalpagenotaxamount_1_dx",
                           "fearnest_dx",
                           "ftotalpage_qty",
                           "ftotalpage_sumqty",
                           "ftotalpage_credit",
                           "ftotalpage_debit",
                           "ftotalpage_slaveqty",
                           "ftotalpage_mainqty",
                           "fpuramount_totalpage",
                           "fsaleamount_totalpage",
                           "fskd_totalpage",
                           "ffkd_totalpage",
                           "ftotalpageselffreight",
                           "ftotalpage_mainqty_1",
                           "ftotalpagefreight_amount",
                           "forderid",
                           "fcomplexqty",
                           "fcomplexqty_in",
                           "fcomplexqty_out",
                           "<单号条码图>",
                           "<随机条码图>",
                           "<用户条码图>",
                           "<商品图片>"}) {
    EXPECT_TRUE(used.contains(name)) << name;
  }
}

}  // namespace
}  // namespace td
