#include "text/characters.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace td {
namespace {

std::vector<std::string> AllCharacters(std::string_view text) {
  std::vector<std::string> characters;
  while (!text.empty()) characters.emplace_back(TakeCharacter(text));
  return characters;
}

TEST(Characters, AreWholeWhateverTheCountOfTheirBytes) {
  EXPECT_EQ(AllCharacters("aé仓𠮷"), (std::vector<std::string>{"a", "é", "仓", "𠮷"}));
  EXPECT_EQ(CharacterCount("aé仓𠮷"), 4U);
  EXPECT_EQ(FirstCharacter("仓库"), "仓");
}

TEST(Characters, OfAnEmptyTextAreNone) {
  EXPECT_EQ(FirstCharacter(""), "");
  EXPECT_EQ(CharacterCount(""), 0U);
}

TEST(Characters, OfBrokenTextsAreSingleBytes) {
  EXPECT_EQ(AllCharacters("\xE4\xBBz"), (std::vector<std::string>{"\xE4", "\xBB", "z"}));
  EXPECT_EQ(AllCharacters("\x80\xF0"), (std::vector<std::string>{"\x80", "\xF0"}));
  EXPECT_EQ(CharacterCount("\xC3"), 1U);
}

}  // namespace
}  // namespace td
