#include "barcodes/code_symbol.h"

#include <gtest/gtest.h>

#include <string>

#include "expect_failure.h"

namespace td {
namespace {

TEST(CodeSymbol, BarsStandBetweenTheQuietZones) {
  const CodeSymbol symbol = EncodeSymbol("code128", "110101-234234-1/6");
  ASSERT_FALSE(symbol.bars.empty());
  constexpr double kQuietZone = 10;
  EXPECT_DOUBLE_EQ(symbol.bars.front().left, kQuietZone);
  EXPECT_DOUBLE_EQ(symbol.bars.back().left + symbol.bars.back().width, symbol.width - kQuietZone);
  EXPECT_EQ(symbol.text, "110101-234234-1/6");
  EXPECT_FALSE(symbol.square);
}

TEST(CodeSymbol, BarsAreWholeModulesAndFillTheHeight) {
  for (const CodeBar& bar : EncodeSymbol("code128", "SO-2024/7").bars) {
    EXPECT_EQ(bar.width, static_cast<int>(bar.width));
    EXPECT_EQ(bar.left, static_cast<int>(bar.left));
    EXPECT_GE(bar.width, 1);
    EXPECT_LE(bar.width, 4);
    EXPECT_EQ(bar.top, 0);
    EXPECT_EQ(bar.height, EncodeSymbol("code128", "SO-2024/7").height);
  }
}

TEST(CodeSymbol, EverySymbologyEncodesATextOfItsKind) {
  const std::pair<const char*, const char*> samples[] = {
      {"code128", "A-1/6"},      {"code128b", "A-1/6"},   {"code39", "A-1/6"},
      {"code39extended", "a1"},  {"code93", "A-1/6"},     {"codabar", "A1-6/B"},
      {"interleaved2of5", "12"}, {"ean", "690123456789"}, {"upca", "01234567890"},
      {"qrcode", "订单 A-1/6"},  {"datamatrix", "A-1/6"}};
  for (const auto& [symbology, text] : samples) {
    EXPECT_TRUE(IsSymbology(symbology)) << symbology;
    const CodeSymbol symbol = EncodeSymbol(symbology, text);
    EXPECT_GT(symbol.bars.size(), 3U) << symbology;
    for (const CodeBar& bar : symbol.bars) {
      EXPECT_GE(bar.left, 0) << symbology;
      EXPECT_LE(bar.left + bar.width, symbol.width) << symbology;
      EXPECT_LE(bar.top + bar.height, symbol.height) << symbology;
    }
  }
}

TEST(CodeSymbol, TwoDimensionalCodesAreSquareAndHaveNoText) {
  const CodeSymbol symbol = EncodeSymbol("qrcode", "110101-234234-1/6");
  EXPECT_TRUE(symbol.square);
  EXPECT_DOUBLE_EQ(symbol.width, symbol.height);
  EXPECT_EQ(symbol.text, "");
}

TEST(CodeSymbol, EmptyTextIsRefused) {
  const std::string description =
      ExpectFailure(kInvalidPicture, [] { (void)EncodeSymbol("code128", ""); });
  EXPECT_NE(description.find("为空"), std::string::npos) << description;
}

TEST(CodeSymbol, CharactersThatTheSymbologyCannotCarryAreRefused) {
  for (const char* text : {"订单", "A订", "\xFF\xFE", "\xE8\xAE", "锁"}) {
    const std::string description =
        ExpectFailure(kInvalidPicture, [&] { (void)EncodeSymbol("code128", text); });
    EXPECT_NE(description.find("不能表示的字符"), std::string::npos) << description;
    EXPECT_NE(description.find("Code 128"), std::string::npos) << description;
  }
  ExpectFailure(kInvalidPicture, [] { (void)EncodeSymbol("interleaved2of5", "1-2"); });
}

TEST(CodeSymbol, TooLongTextIsRefused) {
  for (const std::size_t length : {100U, 8000U, 8001U, 5000000U}) {
    const std::string description = ExpectFailure(
        kInvalidPicture, [&] { (void)EncodeSymbol("code128", std::string(length, 'A')); });
    EXPECT_NE(description.find("长度"), std::string::npos) << description;
  }
}

TEST(CodeSymbol, AWrongCheckDigitIsRefused) {
  const std::string description =
      ExpectFailure(kInvalidPicture, [] { (void)EncodeSymbol("ean", "6901234567890"); });
  EXPECT_NE(description.find("校验位"), std::string::npos) << description;
}

TEST(CodeSymbol, AByteZeroInTheTextDoesNotCutIt) {
  const std::string text("A\0B", 3);
  EXPECT_GT(EncodeSymbol("code128", text).width, EncodeSymbol("code128", "A").width);
}

TEST(CodeSymbol, UnknownSymbologiesAreRefused) {
  EXPECT_FALSE(IsSymbology("code999"));
  EXPECT_FALSE(IsSymbology("Code128"));
  EXPECT_FALSE(IsSymbology(""));
  ExpectFailure(kInvalidCall, [] { (void)EncodeSymbol("code999", "1"); });
}

}  // namespace
}  // namespace td
