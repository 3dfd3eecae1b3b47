#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/failure.h"
#include "text/conversions.h"
#include "text/format_value.h"

namespace td {
namespace {

constexpr std::size_t kLongestPicture = 24;

std::string RandomPieces(std::mt19937& random, const std::vector<std::string_view>& pieces) {
  std::string picture;
  const std::size_t count = random() % kLongestPicture + 1;
  for (std::size_t i = 0; i < count; ++i) picture += pieces[random() % pieces.size()];
  return picture;
}

std::string RandomPicture(std::mt19937& random) {
  static const std::vector<std::string_view> kPieces{
      "0",    "#", ".", ",", "%", "E+",   "e-", "E",    ";",  "\\",   "\"",   "@",
      "&",    "<", ">", "!", "-", "+",    " ",  "(",    ")",  "$",    "y",    "m",
      "d",    "h", "n", "s", "w", "q",    "c",  "t",    "/",  ":",    "元",   "AM/PM",
      "AMPM", "a", "x", "0", "#", "0.00", "¥",  "\xE5", "00", "yyyy", "mmmm", "ttttt"};
  return RandomPieces(random, kPieces);
}

// The picture with a backslash before each of the characters `escaped`.
std::string Escaped(const std::string& picture, std::string_view escaped) {
  std::string result;
  for (const char c : picture) {
    if (escaped.find(c) != std::string_view::npos) result += '\\';
    result += c;
  }
  return result;
}

const std::vector<Value>& Values() {
  static const std::vector<Value> kValues{Null{},
                                          true,
                                          std::int64_t{0},
                                          std::int64_t{-1234567},
                                          0.5,
                                          -0.0004,
                                          1234567.891,
                                          1e300,
                                          -1e-300,
                                          Date{45413.54},
                                          std::string("单号 A1"),
                                          std::string("1,234.5"),
                                          std::string(),
                                          std::string("2024-05-01")};
  return kValues;
}

TEST(RandomPictures, NeverYieldMoreThanTheirPlacesAsk) {
  // A long month of a hidden long date is the widest part, below 40 bytes for a letter; a number
  // has at most 309 digits before the point, with commas, and two more for each percent sign.
  constexpr std::size_t kBytesPerMark = 40;
  constexpr std::size_t kDigitsOfANumber = 600;
  std::mt19937 random(7);
  for (int i = 0; i < 8'000; ++i) {
    const std::string picture = RandomPicture(random);
    for (const Value& value : Values()) {
      try {
        const std::string text = FormatValue(value, picture, FormatLanguage::kEnglish);
        ASSERT_LE(text.size(), kDigitsOfANumber + kBytesPerMark * picture.size()) << picture;
      } catch (const Failure& failure) {
        ASSERT_EQ(failure.Number(), kOverflow) << picture;  // a date outside the calendar
      }
    }
  }
}

TEST(RandomPictures, TextThatIsNoNumberAndNoDateKeepsAllItsCharactersInOrder) {
  std::mt19937 random(11);
  const std::string text = "单号 A1";
  for (int i = 0; i < 8'000; ++i) {
    const std::string picture = RandomPicture(random);
    const std::string shown = FormatValue(text, picture);
    std::size_t found = 0;
    for (const char c : shown) {
      if (found < text.size() && LowerCase({&c, 1}) == LowerCase(text.substr(found, 1))) ++found;
    }
    ASSERT_EQ(found, text.size()) << picture << " gives " << shown;
  }
}

TEST(RandomPictures, PlacesBehindAPartOfADateAreCharacters) {
  const std::vector<std::string_view> pieces{"yyyy",  "mm",    "d",   "hh", "nn", "ss",
                                             "AM/PM", "0",     "00",  "#",  "@&", "-",
                                             ":",     "ttttt", "<!>", "元"};
  std::mt19937 random(13);
  for (int i = 0; i < 4'000; ++i) {
    const std::string picture = "m" + RandomPieces(random, pieces) + "0";
    const std::string shown = FormatValue(Date{45413.54}, picture);
    ASSERT_EQ(shown, FormatValue(Date{45413.54}, Escaped(picture, "0#@&<>!"))) << picture;
    ASSERT_TRUE(shown.ends_with('0')) << picture;
  }
}

TEST(RandomPictures, DateLettersAndPlacesOfTextsBehindAPlaceForADigitAreCharacters) {
  const std::vector<std::string_view> pieces{"0", "#", ".",  ",", "yyyy", "mm", "d", "AM/PM",
                                             "@", "&", "<>", "!", "件",   "c",  "h", "-"};
  std::mt19937 random(17);
  for (int i = 0; i < 4'000; ++i) {
    const std::string picture = "0" + RandomPieces(random, pieces);
    ASSERT_EQ(FormatValue(1234.5, picture), FormatValue(1234.5, Escaped(picture, "@&<>!ymdchAPM")))
        << picture;
  }
}

TEST(RandomPictures, PlacesForDigitsAndDateLettersBehindAPlaceOfTextsAreCharacters) {
  const std::vector<std::string_view> pieces{"@", "&",    "!", "<", ">",     "0",
                                             "#", "yyyy", "h", "-", "AM/PM", "件"};
  std::mt19937 random(19);
  for (int i = 0; i < 4'000; ++i) {
    const std::string picture = "@" + RandomPieces(random, pieces);
    ASSERT_EQ(FormatValue(std::string("单号 A1"), picture),
              FormatValue(std::string("单号 A1"), Escaped(picture, "0#yhAPM")))
        << picture;
  }
}

TEST(RandomPictures, AVeryLongPictureIsNoProblem) {
  constexpr std::size_t kLength = 100'000;
  EXPECT_EQ(FormatValue(std::int64_t{5}, std::string(kLength, '0')).size(), kLength);
  EXPECT_EQ(FormatValue(0.5, "0" + std::string(kLength, '%')).size(), 3 * kLength);
  EXPECT_EQ(FormatValue(std::int64_t{5}, "0" + std::string(kLength, ',')), "0");
  EXPECT_EQ(FormatValue(std::int64_t{5}, "0.0" + std::string(kLength, ',')), "0.0");
  EXPECT_EQ(FormatValue(std::string("x"), std::string(kLength, '@')).size(), kLength);
  EXPECT_EQ(FormatValue(Date{1}, std::string(kLength, 'h')).size(), kLength);
}

}  // namespace
}  // namespace td
