#include <gtest/gtest.h>

#include <algorithm>

#include "page_outputs/document_files.h"
#include "platform/failure.h"
#include "sample_page.h"

namespace td {
namespace {

std::string HtmlOf(const std::vector<Page>& pages, const std::string& title = "订单.html") {
  std::string html;
  StreamHtml(pages, title, [&html](std::string_view part) { html += part; });
  return html;
}

std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

TEST(HtmlOutput, APageIsADrawingOfItsSizeWithItsTexts) {
  const std::string html = HtmlOf({SamplePage(), SamplePage()});
  EXPECT_EQ(CountOf(html, "<svg "), 2U);
  EXPECT_NE(html.find("width=\"241.000mm\" height=\"140.000mm\""), std::string::npos);
  EXPECT_NE(html.find(">单号：XSD-000123<"), std::string::npos);
  EXPECT_NE(html.find("<title>订单.html</title>"), std::string::npos);
}

TEST(HtmlOutput, APictureStandsInTheFileOnceAndBarsAreRectangles) {
  const PictureRef picture = CrossPicture(20, 20);
  const std::string html =
      HtmlOf({PageOf(100, 80,
                     {Placed(picture, 5, 5, 10, 10), Placed(picture, 25, 5, 20, 10),
                      Placed(Bars(), 5, 30, 80, 20)})});
  EXPECT_EQ(CountOf(html, "data:image/png;base64,iVBORw0KGgo"), 1U);
  EXPECT_EQ(CountOf(html, "<use "), 2U);
  EXPECT_EQ(CountOf(html, "<rect "), 21U);
}

TEST(HtmlOutput, WhatHasAMeaningInHtmlIsEscaped) {
  const std::string html = HtmlOf({PageOf(100, 80, {Box("<b>&\"", 5, 5, 50, 10)})}, "<t>");
  EXPECT_NE(html.find("&lt;b&gt;&amp;&quot;"), std::string::npos);
  EXPECT_NE(html.find("<title>&lt;t&gt;</title>"), std::string::npos);
}

TEST(HtmlOutput, WithoutPagesThereIsNone) {
  EXPECT_THROW(HtmlOf({}), Failure);
}

}  // namespace
}  // namespace td
