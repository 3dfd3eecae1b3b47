#include <gtest/gtest.h>

#include "render/outputs.h"
#include "sample_page.h"
#include "test_tools.h"

namespace td {
namespace {

constexpr double kDotsPerInch = 508;  // a pixel is 0.05 millimetres

class HtmlOutput : public testing::Test {
 protected:
  // The document as a browser prints it.
  std::string Printed(const std::vector<Page>& pages) {
    WriteHtml(pages, folder.Path("out.html"), "销售订单");
    PrintHtml(folder.Path("out.html"), folder.Path("browser.pdf"));
    return folder.Path("browser.pdf");
  }

  Folder folder;
};

TEST_F(HtmlOutput, ItemsLieWhereThePdfHasThem) {
  WritePdf({SamplePage()}, folder.Path("sample.pdf"), "");
  const QImage pdf = ImageOf(folder.Path("sample.pdf"), kDotsPerInch);
  const QImage browser = ImageOf(Printed({SamplePage()}), kDotsPerInch);
  for (const SampleItem& item : SampleItems()) {
    const QRectF expected = InkIn(pdf, kDotsPerInch, item.region);
    const QRectF actual = InkIn(browser, kDotsPerInch, item.region);
    EXPECT_NEAR(actual.left(), expected.left(), kTolerance) << item.name;
    EXPECT_NEAR(actual.top(), expected.top(), kTolerance) << item.name;
    EXPECT_NEAR(actual.right(), expected.right(), kTolerance) << item.name;
    EXPECT_NEAR(actual.bottom(), expected.bottom(), kTolerance) << item.name;
  }
}

TEST_F(HtmlOutput, LinesCloseTheCornersOfATable) {
  for (const double penWidth : {14.0, 54.0}) {
    ExpectClosedCorners(ImageOf(Printed({TablePage(penWidth)}), kDotsPerInch), kDotsPerInch,
                        penWidth);
  }
}

TEST_F(HtmlOutput, PrintsEachPageOnASheetOfItsSize) {
  const std::vector<Sheet> sheets =
      SheetsOf(Printed({PageOf(241, 140), PageOf(148, 210), PageOf(241, 140), PageOf(210, 297)}));
  constexpr double kPixel = 25.4 / 96;  // browsers round sheets to whole ones
  ASSERT_EQ(sheets.size(), 4U);
  EXPECT_NEAR(sheets[0].width, 241, kPixel);
  EXPECT_NEAR(sheets[0].height, 140, kPixel);
  EXPECT_NEAR(sheets[1].width, 148, kPixel);
  EXPECT_NEAR(sheets[1].height, 210, kPixel);
  EXPECT_NEAR(sheets[2].height, 140, kPixel);
  EXPECT_NEAR(sheets[3].width, 210, kPixel);
}

TEST_F(HtmlOutput, TextsStayTextsAndAreEscaped) {
  const std::string html =
      ToHtml({PageOf(100, 100, {Box("<b>&\"甲\x01乙", 1, 1, 50, 10)})}, "A & <B>");
  EXPECT_NE(html.find("&lt;b&gt;&amp;&quot;</tspan>"), std::string::npos) << html;
  EXPECT_NE(html.find("<title>A &amp; &lt;B&gt;</title>"), std::string::npos);
}

TEST_F(HtmlOutput, FontNamesCannotLeaveTheirPlaceInTheStyleSheet) {
  const std::string html = ToHtml({PageOf(100, 100,
                                          {Box("x", 1, 1, 50, 10, TextAlignment::kLeft,
                                               Font("a\"}\n</style><script>b\\", 10))})},
                                  "");
  EXPECT_EQ(html.find("<script"), std::string::npos);
  EXPECT_NE(html.find(R"("a\"}\3c /style>\3c script>b\\",)"), std::string::npos) << html;
}

TEST_F(HtmlOutput, TextsCanBeExtractedFromWhatABrowserPrints) {
  const auto words = WordsOf(Printed({PageOf(200, 50, {Box("12345.67", 20, 20, 50, 6)})}));
  EXPECT_NEAR(PlaceOf(words, "12345.67").left(), 20, kTolerance);
}

TEST_F(HtmlOutput, HoldsARepeatedPictureOnceAndNeedsNoOtherFile) {
  std::vector<DrawingCommand> commands;
  for (int i = 0; i < 5; ++i) {
    commands.emplace_back(PlacedPicture{Image(30, 20), 100.0 * i, 100, 90, 90});
  }
  const Page page = PageOf(100, 100, commands);
  const std::string html = ToHtml({page, page}, "");
  const std::size_t first = html.find("data:image/png;base64,");
  ASSERT_NE(first, std::string::npos);
  EXPECT_EQ(html.find("data:image", first + 1), std::string::npos);
  EXPECT_EQ(html.find("http"), std::string::npos);
  EXPECT_EQ(html.find("src="), std::string::npos);
}

TEST_F(HtmlOutput, RefusesAnEmptyDocumentAndAPlaceThatCannotBeWritten) {
  EXPECT_EQ(NumberOf([&] { ToHtml({}, ""); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { WriteHtml({PageOf(10, 10)}, folder.Path("no/out.html"), ""); }),
            kDeviceIo);
}

}  // namespace
}  // namespace td
