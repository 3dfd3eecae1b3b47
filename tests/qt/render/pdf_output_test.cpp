#include <gtest/gtest.h>

#include <set>

#include "page_document/pictures.h"
#include "render/outputs.h"
#include "render/text_layout.h"
#include "sample_page.h"
#include "test_tools.h"

namespace td {
namespace {

class PdfOutput : public testing::Test {
 protected:
  std::string Write(const std::vector<Page>& pages) {
    WritePdf(pages, folder.Path("out.pdf"), "销售订单");
    return folder.Path("out.pdf");
  }
  std::string TextOf(const std::string& text, const std::string& font) {
    const std::string pdf = Write(
        {PageOf(210, 50, {Box(text, 10, 10, 150, 10, TextAlignment::kLeft, Font(font, 12))})});
    std::string extracted = OutputOf("pdftotext", {pdf, "-"});
    return extracted.substr(0, extracted.find('\n'));
  }

  Folder folder;
};

TEST_F(PdfOutput, EverySheetHasItsExactSize) {
  const std::vector<Sheet> wanted = {
      {241, 140}, {210, 297}, {93.7, 55.5}, {215.9, 279.4}, {241, 93}};
  std::vector<Page> pages;
  for (const Sheet& sheet : wanted) pages.push_back(PageOf(sheet.width, sheet.height));
  const std::vector<Sheet> sheets = SheetsOf(Write(pages));
  ASSERT_EQ(sheets.size(), wanted.size());
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    EXPECT_NEAR(sheets[i].width, wanted[i].width, 0.01);
    EXPECT_NEAR(sheets[i].height, wanted[i].height, 0.01);
  }
}

TEST_F(PdfOutput, EachTextLiesAtItsPlace) {
  const double number = LayOut(Box("12345.67", 0, 0, 1, 1)).front().width / kTwipsPerMillimetre;
  const double em = 10.5 * 25.4 / 72;
  std::vector<DrawingCommand> commands;
  for (int i = 0; i < 5; ++i) {
    const std::string digit = std::to_string(i);
    commands.emplace_back(Box(digit + "2345.67", 10.0 + 35 * i, 20, 30, 6));
    commands.emplace_back(
        Box("右" + digit + "2345.67", 10.0 + 35 * i, 40, 30, 6, TextAlignment::kRight));
    commands.emplace_back(
        Box("中" + digit + "2345.67", 10.0 + 35 * i, 60, 30, 6, TextAlignment::kCentre));
  }
  const auto words = WordsOf(Write({PageOf(200, 93, commands)}));
  for (int i = 0; i < 5; ++i) {
    const QRectF left = PlaceOf(words, std::to_string(i) + "2345.67");
    const QRectF right = PlaceOf(words, "右" + std::to_string(i) + "2345.67");
    const QRectF centre = PlaceOf(words, "中" + std::to_string(i) + "2345.67");
    EXPECT_NEAR(left.left(), 10 + 35 * i, kTolerance);
    EXPECT_NEAR(left.width(), number, kTolerance);
    EXPECT_NEAR(right.right(), 40 + 35 * i, kTolerance);
    EXPECT_NEAR(centre.left(), 25 + 35 * i - (number + em) / 2, kTolerance);
    EXPECT_NEAR(right.center().y() + 20, centre.center().y(), kTolerance);
  }
}

TEST_F(PdfOutput, LinesCloseTheCornersOfATable) {
  constexpr double kDotsPerInch = 508;
  for (const double penWidth : {14.0, 54.0}) {
    ExpectClosedCorners(ImageOf(Write({TablePage(penWidth)}), kDotsPerInch), kDotsPerInch,
                        penWidth);
  }
}

TEST_F(PdfOutput, TextsAreExtractedAsTheyWereWritten) {
  for (const char* font :
       {"宋体", "黑体", "楷体", "仿宋", "Arial", "Times New Roman", "Courier New"}) {
    EXPECT_EQ(TextOf("金额：1234567.89 门车长风飞马鱼鸟", font),
              "金额：1234567.89 门车长风飞马鱼鸟")
        << font;
    EXPECT_EQ(TextOf("AVAW To-Ty (5%) M6×20", font), "AVAW To-Ty (5%) M6×20") << font;
  }
}

TEST_F(PdfOutput, AllFontsAreEmbedded) {
  const std::string fonts = OutputOf("pdffonts", {Write({SamplePage()})});
  int count = 0;
  std::size_t at = fonts.find('\n', fonts.find('\n') + 1) + 1;
  while (at < fonts.size()) {
    const std::string line = fonts.substr(at, fonts.find('\n', at) - at);
    EXPECT_NE(line.find("CID TrueType      Identity-H       yes"), std::string::npos) << line;
    at += line.size() + 1;
    ++count;
  }
  EXPECT_GE(count, 6);
}

TEST_F(PdfOutput, FontsAreSubsets) {
  Write({PageOf(210, 297, {Box("宋体", 10, 10, 50, 10)})});
  EXPECT_LT(ReadFile(folder.Path("out.pdf")).size(), 30'000U);
}

TEST_F(PdfOutput, APictureThatIsRepeatedIsStoredOnce) {
  std::vector<Page> pages;
  for (int i = 0; i < 20; ++i) {
    pages.push_back(PageOf(210, 297, {PlacedPicture{Image(300, 200), 100, 100, 2000, 2000}}));
  }
  const std::string list = OutputOf("pdfimages", {"-list", Write(pages)});
  std::set<QString> objects;
  const QStringList lines = QString::fromStdString(list).trimmed().split('\n').mid(2);
  for (const QString& line : lines) objects.insert(line.simplified().section(' ', 10, 10));
  EXPECT_EQ(lines.size(), 20);
  EXPECT_EQ(objects.size(), 1U) << list;
}

TEST_F(PdfOutput, ADocumentOfManyPagesIsWrittenWhole) {
  std::vector<Page> pages(300, PageOf(148, 210, {Box("页", 10, 10, 50, 10)}));
  EXPECT_EQ(SheetsOf(Write(pages)).size(), 300U);
}

TEST_F(PdfOutput, RefusesAnEmptyDocumentAndAPlaceThatCannotBeWritten) {
  EXPECT_EQ(NumberOf([&] { Write({}); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { WritePdf({PageOf(100, 100)}, folder.Path("no/out.pdf"), ""); }),
            kDeviceIo);
}

TEST_F(PdfOutput, AFileNameIsNotTakenForALockConflict) {
  try {
    WritePdf({PageOf(100, 100)}, folder.Path("锁/out.pdf"), "");
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Description().find("锁"), std::string::npos) << failure.Description();
  }
}

TEST_F(PdfOutput, ItemsFarOutsideThePageDoNoHarm) {
  const PictureRef image = Image(10, 10);
  const std::string pdf =
      Write({PageOf(100, 100,
                    {Box("远", 1e5, 1e5, 10, 10), Line{-1e7, -1e7, 1e7, 1e7, 1e7},
                     PlacedPicture{image, -1e7, -1e7, 2, 2}, PlacedPicture{image, 0, 0, 0, 0},
                     PlacedPicture{std::make_shared<ImagePicture>(Bytes(), 5, 5), 0, 0, 10, 10}})});
  EXPECT_EQ(SheetsOf(pdf).size(), 1U);
}

}  // namespace
}  // namespace td
