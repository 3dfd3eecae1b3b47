#include <gtest/gtest.h>

#include <string>

#include "text/characters.h"

namespace td {
namespace {

// A letter of two bytes.
std::string Letter(int code) {
  return {static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))};
}

void ExpectPair(const std::string& capital, const std::string& small) {
  EXPECT_EQ(InSmallLetters(capital), small);
  EXPECT_EQ(InCapitals(small), capital);
  EXPECT_EQ(InSmallLetters(small), small);
  EXPECT_EQ(InCapitals(capital), capital);
}

// In each of these alphabets a small letter stands at the same distance behind its capital.
void ExpectPairs(int firstCapital, int lastCapital, int distance) {
  for (int code = firstCapital; code <= lastCapital; ++code) {
    ExpectPair(Letter(code), Letter(code + distance));
  }
}

TEST(LetterCase, ChangesTheLettersOfAscii) {
  for (char c = 'A'; c <= 'Z'; ++c) {
    ExpectPair(std::string(1, c), std::string(1, static_cast<char>(c + 'a' - 'A')));
  }
}

TEST(LetterCase, ChangesFullWidthLetters) {
  ExpectPair("ＡＢＭＹＺ", "ａｂｍｙｚ");
  EXPECT_EQ(InSmallLetters("型号ＡＢ－１２"), "型号ａｂ－１２");
}

TEST(LetterCase, ChangesEveryAccentedLetterOfWesternEurope) {
  ExpectPairs(0xC0, 0xD6, 32);
  ExpectPairs(0xD8, 0xDE, 32);
}

TEST(LetterCase, ChangesEveryGreekAndRussianLetter) {
  ExpectPairs(0x391, 0x3A1, 32);
  ExpectPairs(0x3A3, 0x3A9, 32);
  ExpectPairs(0x410, 0x42F, 32);
  ExpectPair("Ё", "ё");
}

TEST(LetterCase, LeavesAllOtherCharacters) {
  const std::string others = "×÷ß单号 0-9@[`{＠［１。\xFF\xE5";
  EXPECT_EQ(InCapitals(others), others);
  EXPECT_EQ(InSmallLetters(others), others);
}

}  // namespace
}  // namespace td
