#include "barcodes/zint_barcode.h"

#include <gtest/gtest.h>

#include "expect_failure.h"
#include "page_document/pictures.h"

namespace td {
namespace {

constexpr double kTwipsPerMillimetre = 1440 / 25.4;

std::shared_ptr<const VectorPicture> Drawn(Barcode& barcode) {
  return std::dynamic_pointer_cast<const VectorPicture>(barcode.GetPicture());
}

std::string LineOf(Barcode& barcode) {
  const auto picture = Drawn(barcode);
  return picture->Texts().empty() ? "" : picture->Texts().front().text;
}

TEST(ZintBarcode, ShowsTheSampleTextBeforeAnyData) {
  ZintBarcode barcode;
  EXPECT_EQ(LineOf(barcode), "110101-234234-1/6");
}

TEST(ZintBarcode, ShowsTheLastDataUntilTheNext) {
  ZintBarcode barcode;
  barcode.PutData("SO-1");
  barcode.PutData("SO-2");
  EXPECT_EQ(LineOf(barcode), "SO-2");
  EXPECT_EQ(LineOf(barcode), "SO-2");
}

TEST(ZintBarcode, PicturesThatWereMadeStayAsTheyWere) {
  ZintBarcode barcode;
  barcode.PutData("SO-1");
  const auto first = Drawn(barcode);
  barcode.PutData("SO-2");
  EXPECT_EQ(first->Texts().front().text, "SO-1");
}

TEST(ZintBarcode, HasTheStoredExtentAndFont) {
  ZintBarcode barcode;
  const auto picture = Drawn(barcode);
  EXPECT_NEAR(picture->NaturalSize().width, 52.12 * kTwipsPerMillimetre, 0.01);
  EXPECT_NEAR(picture->NaturalSize().height, 12.96 * kTwipsPerMillimetre, 0.01);
  ASSERT_EQ(picture->Texts().size(), 1U);
  const VectorPicture::Text& line = picture->Texts().front();
  EXPECT_EQ(line.font, (TextFont{"宋体", 14.25, false, false}));
  EXPECT_EQ(line.alignment, TextAlignment::kCentre);
}

TEST(ZintBarcode, TheLineStandsBelowTheBarsInsideTheExtent) {
  ZintBarcode barcode;
  const auto picture = Drawn(barcode);
  const VectorPicture::Text& line = picture->Texts().front();
  EXPECT_NEAR(line.top + line.height, picture->NaturalSize().height, 0.01);
  for (std::size_t i = 1; i < picture->Rectangles().size(); ++i) {
    const auto& bar = picture->Rectangles()[i];
    EXPECT_LT(bar.top + bar.height, line.top);
    EXPECT_GT(bar.height, picture->NaturalSize().height / 2);
  }
}

TEST(ZintBarcode, ALongLineIsSetSmallerSoThatItFits) {
  ZintBarcode barcode;
  barcode.PutData("A1-/b2-/C3-/d4-/E5-/f6-/G7-/h8-/I9-/j0-/");
  const auto picture = Drawn(barcode);
  const double points = picture->Texts().front().font.points;
  EXPECT_LT(points, 14.25);
  EXPECT_LE(40 * 0.5 * points * kTwipsPerPoint, picture->NaturalSize().width);
}

TEST(ZintBarcode, BarsAreBlackOnWhiteUnlessSetOtherwise) {
  ZintBarcode barcode;
  const auto usual = Drawn(barcode);
  EXPECT_EQ(usual->Rectangles()[0].colour, (Colour{255, 255, 255}));
  EXPECT_EQ(usual->Rectangles()[0].width, usual->NaturalSize().width);
  EXPECT_EQ(usual->Rectangles()[1].colour, (Colour{0, 0, 0}));

  ZintBarcode coloured({.barColour = 0x102030, .background = 0xF0E0D0});
  const auto picture = Drawn(coloured);
  EXPECT_EQ(picture->Rectangles()[0].colour, (Colour{0xF0, 0xE0, 0xD0}));
  EXPECT_EQ(picture->Rectangles()[1].colour, (Colour{0x10, 0x20, 0x30}));
  EXPECT_EQ(picture->Texts()[0].colour, (Colour{0x10, 0x20, 0x30}));
}

TEST(ZintBarcode, WithoutABackgroundOnlyTheBarsAreDrawn) {
  ZintBarcode plain;
  ZintBarcode transparent({.background = std::nullopt});
  EXPECT_EQ(Drawn(transparent)->Rectangles().size() + 1, Drawn(plain)->Rectangles().size());
}

TEST(ZintBarcode, WithoutTheLineTheBarsFillTheExtent) {
  ZintBarcode barcode({.showText = false});
  const auto picture = Drawn(barcode);
  EXPECT_TRUE(picture->Texts().empty());
  EXPECT_NEAR(picture->Rectangles()[1].height, picture->NaturalSize().height, 0.01);
}

TEST(ZintBarcode, ATwoDimensionalCodeIsASquare) {
  ZintBarcode barcode({.symbology = "qrcode"});
  const auto picture = Drawn(barcode);
  EXPECT_NEAR(picture->NaturalSize().width, 12.96 * kTwipsPerMillimetre, 0.01);
  EXPECT_EQ(picture->NaturalSize().width, picture->NaturalSize().height);
}

// The lines of a picture that has no bars, joined.
std::string LettersAlone(Barcode& barcode) {
  const auto picture = Drawn(barcode);
  EXPECT_LE(picture->Rectangles().size(), 1U) << "nothing but the background";
  std::string letters;
  for (const VectorPicture::Text& line : picture->Texts()) letters += line.text;
  return letters;
}

TEST(ZintBarcode, ATextThatCannotBeCarriedIsDrawnInLettersAndTheReasonTold) {
  std::vector<std::string> reasons;
  ZintBarcode barcode({}, [&reasons](const std::string& reason) { reasons.push_back(reason); });
  const std::string tooLong = std::string(61, 'A') + "订单";
  barcode.PutData(tooLong);
  EXPECT_EQ(LettersAlone(barcode), tooLong);
  ASSERT_EQ(reasons.size(), 1U);
  EXPECT_EQ(reasons[0].find("AAA"), std::string::npos);
  barcode.PutData("");
  EXPECT_EQ(LettersAlone(barcode), "");
  EXPECT_EQ(reasons.size(), 2U);
  barcode.PutData("订单");
  EXPECT_EQ(LineOf(barcode), "订单");
  EXPECT_GT(Drawn(barcode)->Rectangles().size(), 10U);
  EXPECT_EQ(reasons.size(), 2U);
}

TEST(ZintBarcode, LettersAloneFitIntoTheExtentAndStandAsLargeAsTheyCan) {
  for (const std::size_t length : {1U, 30U, 61U, 200U, 1000U, 20000U}) {
    ZintBarcode barcode({.symbology = "ean", .showText = false});
    barcode.PutData(std::string(length, 'x'));
    const auto picture = Drawn(barcode);
    const PictureSize extent = picture->NaturalSize();
    ASSERT_FALSE(picture->Texts().empty());
    const double points = picture->Texts().front().font.points;
    for (const VectorPicture::Text& line : picture->Texts()) {
      EXPECT_GE(line.top, -0.01) << length;
      EXPECT_LE(line.top + line.height, extent.height + 0.01) << length;
      EXPECT_LE(static_cast<double>(line.text.size()) * 0.6 * points * kTwipsPerPoint,
                extent.width + 0.01)
          << length;
    }
    const double inked = static_cast<double>(length) * 0.6 * 1.2 * points * points * 400;
    EXPECT_TRUE(points == 14.25 || inked > extent.width * extent.height * 0.5) << length;
  }
}

TEST(ZintBarcode, LettersAloneBreakBetweenCharacters) {
  std::string text;
  for (int i = 0; i < 40; ++i) text += "订单";
  ZintBarcode barcode;
  barcode.PutData(text);
  EXPECT_EQ(LettersAlone(barcode), text);
  const auto picture = Drawn(barcode);
  EXPECT_GT(picture->Texts().size(), 1U);
  for (const VectorPicture::Text& line : picture->Texts()) {
    EXPECT_EQ(line.text.size() % 3, 0U) << "whole characters of three bytes";
  }
}

}  // namespace
}  // namespace td
