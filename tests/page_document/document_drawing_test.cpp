#include <gtest/gtest.h>

#include <limits>

#include "fake_host.h"
#include "page_document/pictures.h"

namespace td {
namespace {

class DocumentDrawing : public testing::Test {
 protected:
  DocumentDrawing() { document.StartDoc(); }

  template <typename Command>
  Command Last() const {
    return std::get<Command>(document.Pages().back().commands.back());
  }
  std::size_t Count() const { return document.Pages().back().commands.size(); }

  FakeHost host;
  PageDocument document{host};
};

TEST_F(DocumentDrawing, TextBoxesTakeTheFontAndAlignmentOfTheMoment) {
  document.PutFontName("宋体");
  document.PutFontSize(10.5);
  document.PutFontBold(true);
  document.PutTextAlign(8);
  document.TextBox("金额", 100, 200, 300, 400, StoredFlag{Value(true)});
  document.PutFontName("黑体");
  document.PutTextAlign(6);
  const auto& box = Last<BoxText>();
  EXPECT_EQ(box.text, "金额");
  EXPECT_EQ(box.left, 100);
  EXPECT_EQ(box.top, 200);
  EXPECT_EQ(box.width, 300);
  EXPECT_EQ(box.height, 400);
  EXPECT_TRUE(box.wordWrap);
  EXPECT_EQ(box.alignment, TextAlignment::kRight);
  EXPECT_EQ(*box.font, (TextFont{"宋体", 10.5, true, false}));
}

TEST_F(DocumentDrawing, TheWordWrapFlagMayHaveAnyForm) {
  const auto wraps = [this](const Value& flag) {
    document.TextBox("字", 0, 0, 10, 10, StoredFlag{flag});
    return Last<BoxText>().wordWrap;
  };
  EXPECT_FALSE(wraps(Null()));
  EXPECT_TRUE(wraps(std::int64_t{-1}));
  EXPECT_FALSE(wraps(0.0));
  EXPECT_TRUE(wraps(std::string("True")));
  EXPECT_EQ(NumberOf([&] { wraps(std::string("或许")); }), kTypeMismatch);
  document.TextBox("字", 0, 0, 10, 10);
  EXPECT_FALSE(Last<BoxText>().wordWrap);
}

TEST_F(DocumentDrawing, UnknownAlignmentCodesPlaceTextAtTheLeft) {
  document.PutTextAlign(42);
  document.TextBox("字", 0, 0, 10, 10);
  EXPECT_EQ(Last<BoxText>().alignment, TextAlignment::kLeft);
  EXPECT_EQ(document.TextAlign(), 42);
}

TEST_F(DocumentDrawing, CommandsWithTheSameFontShareIt) {
  document.TextBox("一", 0, 0, 10, 10);
  document.PutFontName("宋体");
  document.TextBox("二", 0, 0, 10, 10);
  document.PutFontName("Arial");
  document.NewPage();
  document.TextBox("三", 0, 0, 10, 10);
  const auto first = std::get<BoxText>(document.Pages()[0].commands[0]);
  EXPECT_EQ(first.font, Last<BoxText>().font);
}

TEST_F(DocumentDrawing, WritingAtThePointEndsAtTheBottomOfWhatWasWritten) {
  document.PutFontSize(10);
  document.PutCurrentX(1000);
  document.PutCurrentY(500);
  document.PutParagraph("第一行\r\n第二行");
  EXPECT_EQ(document.CurrentX(), 1000);
  EXPECT_EQ(document.CurrentY(), 900);
  const auto& text = Last<PointText>();
  EXPECT_EQ(text.x, 1000);
  EXPECT_EQ(text.y, 500);
  ASSERT_EQ(text.lines.size(), 2U);
  EXPECT_EQ(text.lines[1][0].text, "第二行");
  EXPECT_EQ(text.heights, (std::vector<double>{200, 200}));
  document.PutText("x");
  EXPECT_EQ(document.CurrentY(), 1100);
}

TEST_F(DocumentDrawing, ALineBreakMovesDownALineAndTheEmptyTextDoesNot) {
  document.PutFontSize(10);
  document.PutText("\r\n");
  EXPECT_EQ(document.CurrentY(), 200);
  document.PutText("");
  EXPECT_EQ(document.CurrentY(), 200);
  document.PutParagraph("");
  EXPECT_EQ(document.CurrentY(), 400);
}

TEST_F(DocumentDrawing, ATextGoesOnBehindTheTextBeforeIt) {
  document.PutFontSize(10);
  document.PutCurrentX(1000);
  document.PutCurrentY(500);
  document.PutText("ab");
  EXPECT_EQ(document.CurrentX(), 1200);
  document.PutText("cd");
  ASSERT_EQ(Count(), 1U);
  ASSERT_EQ(Last<PointText>().lines.front().size(), 1U) << "one run, since its font is one";
  EXPECT_EQ(Last<PointText>().lines.front().front().text, "abcd");
  EXPECT_EQ(document.CurrentX(), 1400);
  EXPECT_EQ(document.CurrentY(), 700);
  document.PutFontSize(20);
  document.PutText("e");
  const auto& line = Last<PointText>();
  ASSERT_EQ(line.lines.front().size(), 2U);
  EXPECT_EQ(line.lines.front()[1].text, "e");
  EXPECT_EQ(line.y, 500);
  EXPECT_EQ(document.CurrentY(), 900) << "as high as the largest font";
}

TEST_F(DocumentDrawing, ALineEndPutsTheNextTextBelowTheStartOfTheLine) {
  document.PutFontSize(10);
  document.PutCurrentX(1000);
  document.PutText("ab");
  document.PutText("\r\n");
  EXPECT_EQ(document.CurrentX(), 1000);
  EXPECT_EQ(document.CurrentY(), 200);
  document.PutText("cd\nef");
  document.PutText("gh\nij\n");
  ASSERT_EQ(Count(), 4U);
  const auto lineAt = [this](std::size_t command) {
    const auto text = std::get<PointText>(document.Pages()[0].commands[command]);
    EXPECT_EQ(text.lines.size(), 1U);
    EXPECT_EQ(text.x, 1000);
    return std::make_pair(text.lines.front().front().text, text.y);
  };
  EXPECT_EQ(lineAt(0), (std::make_pair(std::string("ab"), 0.0)));
  EXPECT_EQ(lineAt(1), (std::make_pair(std::string("cd"), 200.0)));
  EXPECT_EQ(lineAt(2), (std::make_pair(std::string("efgh"), 400.0)));
  EXPECT_EQ(lineAt(3), (std::make_pair(std::string("ij"), 600.0)));
  EXPECT_EQ(document.CurrentY(), 800);
}

TEST_F(DocumentDrawing, ANewPointLeavesTheLine) {
  document.PutFontSize(10);
  document.PutText("ab");
  document.PutCurrentX(3000);
  document.PutText("cd");
  EXPECT_EQ(Last<PointText>().x, 3000);
  EXPECT_EQ(Last<PointText>().y, 0) << "a place in the same line";
  document.PutCurrentY(1000);
  document.PutText("ef");
  EXPECT_EQ(Last<PointText>().x, 3000);
  EXPECT_EQ(Last<PointText>().y, 1000);
  EXPECT_EQ(Count(), 3U);
}

TEST_F(DocumentDrawing, ParagraphsAndRichTextGoOnBehindATextAndEndItsLine) {
  document.PutFontSize(10);
  document.PutText("ab");
  document.PutParagraph("cd");
  EXPECT_EQ(Last<PointText>().lines.front().front().text, "abcd");
  EXPECT_EQ(document.CurrentY(), 200);
  EXPECT_EQ(document.CurrentX(), 0);
  document.PutText("ef");
  document.PutRichText("{\\rtf1 gh\\par ij}");
  ASSERT_EQ(Count(), 3U);
  EXPECT_EQ(std::get<PointText>(document.Pages()[0].commands[1]).lines.front().front().text,
            "efgh");
  EXPECT_EQ(Last<PointText>().lines.front().front().text, "ij");
  EXPECT_EQ(Last<PointText>().y, 400);
  EXPECT_EQ(document.CurrentY(), 600);
  document.PutParagraph("kl");
  EXPECT_EQ(Last<PointText>().y, 600);
}

TEST_F(DocumentDrawing, ATextThatIsCentredOrEndsAtThePointGoesOnToo) {
  document.PutFontSize(10);
  document.PutCurrentX(1000);
  document.PutTextAlign(7);
  document.PutText("ab");
  EXPECT_EQ(document.CurrentX(), 1100);
  document.PutTextAlign(8);
  document.PutText("cd");
  EXPECT_EQ(Last<PointText>().alignment, TextAlignment::kCentre) << "a line has one alignment";
  document.PutText("\r\n");
  document.PutText("ef");
  EXPECT_EQ(Last<PointText>().alignment, TextAlignment::kRight);
  EXPECT_EQ(document.CurrentX(), 1000);
}

TEST_F(DocumentDrawing, ANewPageAndAnOverlayBeginALineOfTheirOwn) {
  document.Connect({{}, {}, [this] {
                      document.PutText("x");
                      document.StartOverlay(1);
                      document.PutText("y");
                      document.EndOverlay();
                      document.PutText("z");
                    }});
  document.PutText("ab");
  document.NewPage();
  document.PutText("cd");
  document.EndDoc();
  ASSERT_EQ(document.Pages()[0].commands.size(), 2U);
  const auto texts = [this](std::size_t page, std::size_t command) {
    return std::get<PointText>(document.Pages()[page - 1].commands[command])
        .lines.front()
        .front()
        .text;
  };
  EXPECT_EQ(texts(1, 1), "y");
  ASSERT_EQ(document.Pages()[1].commands.size(), 2U);
  EXPECT_EQ(texts(2, 0), "cdx");
  EXPECT_EQ(texts(2, 1), "z");
}

TEST_F(DocumentDrawing, RichTextKeepsItsBoldAndItsSizes) {
  document.PutFontSize(10);
  document.PutRichText(R"({\rtf1 plain {\b\fs40 big}\par end})");
  const auto& text = Last<PointText>();
  ASSERT_EQ(text.lines.size(), 2U);
  ASSERT_EQ(text.lines[0].size(), 2U);
  EXPECT_EQ(text.lines[0][0].text, "plain ");
  EXPECT_EQ(*text.lines[0][1].font, (TextFont{"Arial", 20, true, false}));
  EXPECT_EQ(text.heights, (std::vector<double>{400, 200}));
}

TEST_F(DocumentDrawing, LinesTakeThePenWidthOfTheMoment) {
  document.PutPenWidth(27);
  document.DrawLine(1, 2, 3, 4);
  document.PutPenWidth(14);
  const auto& line = Last<Line>();
  EXPECT_EQ(line.penWidth, 27);
  EXPECT_EQ(line.x1, 1);
  EXPECT_EQ(line.y2, 4);
}

TEST_F(DocumentDrawing, PicturesHaveTheirNaturalSizeUnlessOneIsGiven) {
  const auto image = std::make_shared<ImagePicture>(Bytes(), 96, 48, 192, 0);
  document.DrawPicture(image, 10, 20);
  EXPECT_EQ(Last<PlacedPicture>().width, 720);
  EXPECT_EQ(Last<PlacedPicture>().height, 720);
  document.DrawPicture(image, 10, 20, 300, 0);
  EXPECT_EQ(Last<PlacedPicture>().width, 300);
  EXPECT_EQ(Last<PlacedPicture>().height, 0);
  const auto bars = std::make_shared<VectorPicture>(PictureSize{2955, 735},
                                                    std::vector<VectorPicture::Rectangle>(),
                                                    std::vector<VectorPicture::Text>());
  document.DrawPicture(bars, 10, 20);
  EXPECT_EQ(Last<PlacedPicture>().width, 2955);
}

TEST_F(DocumentDrawing, AnEmptyPictureDrawsNothingAndAForeignOneIsRefused) {
  document.DrawPicture(nullptr, 0, 0);
  document.DrawPicture(nullptr, 0, 0, 10, 10);
  EXPECT_EQ(Count(), 0U);
  class ForeignPicture : public Picture {};
  const auto foreign = std::make_shared<ForeignPicture>();
  EXPECT_EQ(NumberOf([&] { document.DrawPicture(foreign, 0, 0); }), kInvalidPicture);
  EXPECT_EQ(NumberOf([&] { document.DrawPicture(foreign, 0, 0, 1, 1); }), kInvalidPicture);
}

TEST_F(DocumentDrawing, NeedsAnOpenDocument) {
  document.EndDoc();
  const auto image = std::make_shared<ImagePicture>(Bytes(), 1, 1);
  EXPECT_EQ(NumberOf([&] { document.TextBox("字", 0, 0, 1, 1); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { document.PutParagraph("字"); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { document.PutText("字"); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { document.PutRichText("字"); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { document.DrawLine(0, 0, 1, 1); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { document.DrawPicture(image, 0, 0); }), kInvalidCall);
  document.ClearDoc();
  EXPECT_EQ(NumberOf([&] { document.DrawLine(0, 0, 1, 1); }), kInvalidCall);
}

TEST_F(DocumentDrawing, RefusesAbsurdPlacesAndDrawsNothing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(NumberOf([&] { document.TextBox("字", nan, 0, 1, 1); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { document.TextBox("字", 0, 0, 1e300, 1); }), kOverflow);
  EXPECT_EQ(NumberOf([&] { document.DrawLine(0, nan, 1, 1); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { document.DrawLine(0, 0, -1e300, 1); }), kOverflow);
  const auto image = std::make_shared<ImagePicture>(Bytes(), 1, 1);
  EXPECT_EQ(NumberOf([&] { document.DrawPicture(image, 0, 0, nan, 1); }), kInvalidCall);
  document.PutCurrentY(9'999'999);
  EXPECT_EQ(NumberOf([&] { document.PutParagraph("字"); }), kOverflow);
  EXPECT_EQ(document.CurrentY(), 9'999'999);
  EXPECT_EQ(Count(), 0U);
}

}  // namespace
}  // namespace td
