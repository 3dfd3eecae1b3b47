// What people write of sheets and of distances on them.
#include "calibration_input.h"

#include <gtest/gtest.h>

#include <sstream>

namespace td {
namespace {

void ExpectSheet(const std::string& text, double width, double height) {
  const auto sheet = SheetNamed(text);
  ASSERT_TRUE(sheet) << text;
  EXPECT_NEAR(sheet->width / kTwipsPerMillimetre, width, 0.01) << text;
  EXPECT_NEAR(sheet->height / kTwipsPerMillimetre, height, 0.01) << text;
}

TEST(CalibrationInput, KnowsSheetsByNameAndBySize) {
  ExpectSheet("A4", 210, 297);
  ExpectSheet("a4", 210, 297);
  ExpectSheet("信封 DL", 110, 220);
  ExpectSheet("241x93.3", 241, 93.3);
  ExpectSheet("182 × 257", 182, 257);
  ExpectSheet("100X150", 100, 150);
  for (const char* text : {"", "A", "241", "241x", "x140", "241x140x2", "241x140mm", "infxinf"}) {
    EXPECT_FALSE(SheetNamed(text)) << text;
  }
}

TEST(CalibrationInput, WritesSheetsAsItReadsThem) {
  const auto sheet = SheetNamed(SheetOption(MillimetresOf(*SheetNamed("241x93.3"))));
  ASSERT_TRUE(sheet);
  EXPECT_NEAR(sheet->height / kTwipsPerMillimetre, 93.3, 0.001);
  EXPECT_EQ(SheetText({241, 93.3}), "241 × 93.3 mm");
}

TEST(CalibrationInput, TakesTwoDistances) {
  for (const char* text : {"22.3,20.1", "22.3 20.1", " 22.3 , 20.1 ", "22.3，20.1"}) {
    const auto distances = ParseDistances(text);
    ASSERT_TRUE(distances) << text;
    EXPECT_EQ(distances->across, 22.3);
    EXPECT_EQ(distances->along, 20.1);
  }
  for (const char* text : {"", "22", "22,", "0,20", "-1,20", "22,20,3", "a,b", "nan,1"}) {
    EXPECT_FALSE(ParseDistances(text)) << text;
  }
}

TEST(CalibrationInput, IsAskedForUntilItCanBeRead) {
  std::istringstream answers("twenty\n22,3\n\n");
  std::ostringstream questions;
  const auto distances = AskForDistances(answers, questions, Corner::kTopRight, Language::kEnglish);
  ASSERT_TRUE(distances);
  EXPECT_EQ(distances->across, 22);
  EXPECT_EQ(questions.str(),
            "top right cross, from the right edge and from the top edge: "
            "Two numbers in millimetres are wanted, such as 20.3 19.8.\n"
            "top right cross, from the right edge and from the top edge: ");
  EXPECT_FALSE(AskForDistances(answers, questions, Corner::kTopLeft, Language::kEnglish))
      << "an empty line ends";
  EXPECT_FALSE(AskForDistances(answers, questions, Corner::kTopLeft, Language::kEnglish))
      << "and so does the end";
}

}  // namespace
}  // namespace td
