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
  const Command& Last() const {
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
  const auto& first = std::get<BoxText>(document.Pages()[0].commands[0]);
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
