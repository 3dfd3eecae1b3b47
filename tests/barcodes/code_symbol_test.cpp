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

// There are no bars, and the reason names the symbology and holds some words.
void ExpectRefusal(const char* symbology, const std::string& text, const std::string& words) {
  const CodeSymbol symbol = EncodeSymbol(symbology, text);
  EXPECT_TRUE(symbol.bars.empty()) << words;
  EXPECT_EQ(symbol.text, text) << words;
  EXPECT_NE(symbol.refusal.find(words), std::string::npos) << symbol.refusal;
}

TEST(CodeSymbol, EmptyTextHasNoBars) {
  ExpectRefusal("code128", "", "Code 128");
  ExpectRefusal("qrcode", "", "为空");
  EXPECT_TRUE(EncodeSymbol("qrcode", "").square);
}

TEST(CodeSymbol, CharactersThatTheSymbologyLacksBecomeTheBytesOfUtf8) {
  for (const char* text : {"订单", "A订", "\xFF\xFE", "\xE8\xAE", "锁", "订单 2024/7"}) {
    for (const char* symbology : {"code128", "code128b"}) {
      const CodeSymbol symbol = EncodeSymbol(symbology, text);
      EXPECT_FALSE(symbol.bars.empty()) << symbology << ' ' << text;
      EXPECT_EQ(symbol.text, text);
      EXPECT_EQ(symbol.refusal, "");
    }
  }
  EXPECT_FALSE(EncodeSymbol("datamatrix", "订单").bars.empty());
}

TEST(CodeSymbol, TheBytesOfUtf8AreTheCharactersOfLatin1WithTheSameNumbers) {
  const CodeSymbol chinese = EncodeSymbol("code128", "\xE9\xA3\xB2");  // 飲, E9 A3 B2
  const CodeSymbol latin = EncodeSymbol("code128", "é£²");
  ASSERT_EQ(chinese.bars.size(), latin.bars.size());
  for (std::size_t i = 0; i < latin.bars.size(); ++i) {
    EXPECT_EQ(chinese.bars[i].left, latin.bars[i].left);
    EXPECT_EQ(chinese.bars[i].width, latin.bars[i].width);
  }
}

TEST(CodeSymbol, CharactersThatTheSymbologyCannotCarryAreRefused) {
  for (const char* symbology : {"code39", "code39extended", "code93", "codabar", "ean"}) {
    ExpectRefusal(symbology, "订单", "不能表示的字符");
  }
  ExpectRefusal("interleaved2of5", "1-2", "交叉 25 码");
}

TEST(CodeSymbol, TooLongTextIsRefused) {
  for (const std::size_t length : {100U, 8000U, 8001U, 5000000U}) {
    ExpectRefusal("code128", std::string(length, 'A'), "长度");
  }
  std::string chinese;
  for (int i = 0; i < 25; ++i) chinese += "订";
  ExpectRefusal("code128", chinese, "长度");
}

TEST(CodeSymbol, AWrongCheckDigitIsRefused) {
  ExpectRefusal("ean", "6901234567890", "校验位");
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
