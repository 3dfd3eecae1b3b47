#include "checker/nearest_name.h"

#include <algorithm>
#include <string_view>

#include "text/characters.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

constexpr std::string_view kWideBlank = "\u3000";

bool IsBlank(std::string_view character) {
  return character == " " || character == "\t" || character == kWideBlank;
}

std::vector<std::string_view> CharactersOf(std::string_view text) {
  std::vector<std::string_view> characters;
  while (!text.empty()) characters.push_back(TakeCharacter(text));
  return characters;
}

// How many characters have to be put in, taken out or changed, or swapped with their neighbour.
std::size_t Distance(const std::vector<std::string_view>& a,
                     const std::vector<std::string_view>& b) {
  std::vector<std::vector<std::size_t>> steps(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i) {
    for (std::size_t j = 0; j <= b.size(); ++j) {
      std::size_t& fewest = steps[i][j];
      if (i == 0 || j == 0) {
        fewest = i + j;
        continue;
      }
      const std::size_t change = a[i - 1] == b[j - 1] ? 0 : 1;
      fewest = std::min({steps[i - 1][j] + 1, steps[i][j - 1] + 1, steps[i - 1][j - 1] + change});
      const bool isSwap = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (isSwap) fewest = std::min(fewest, steps[i - 2][j - 2] + 1);
    }
  }
  return steps[a.size()][b.size()];
}

}  // namespace

std::string NearestName(const std::string& name, const std::vector<std::string>& candidates) {
  const std::string lowerName = LowerCase(WithoutBlanks(name));
  const auto wanted = CharactersOf(lowerName);
  // A quarter of the letters may be wrong, or a third of other characters, which say more each; one
  // of a short name.
  const bool isLatin = wanted.size() == lowerName.size();
  const std::size_t most =
      wanted.size() < 2 ? 0 : std::max<std::size_t>(1, wanted.size() / (isLatin ? 4 : 3));
  std::string nearest;
  bool isOneOfSeveral = false;
  std::size_t fewest = most + 1;
  for (const std::string& candidate : candidates) {
    if (candidate == name) continue;
    const std::string lowerCandidate = LowerCase(WithoutBlanks(candidate));
    const std::size_t distance = Distance(wanted, CharactersOf(lowerCandidate));
    if (distance > fewest || distance > most) continue;
    if (distance == fewest) {
      isOneOfSeveral = isOneOfSeveral || LowerCase(nearest) != LowerCase(candidate);
      continue;
    }
    fewest = distance;
    nearest = candidate;
    isOneOfSeveral = false;
  }
  return isOneOfSeveral ? std::string() : nearest;
}

std::string WithoutBlanks(const std::string& text) {
  std::string kept;
  for (const std::string_view character : CharactersOf(text)) {
    if (!IsBlank(character)) kept += character;
  }
  return kept;
}

bool HasOuterBlanks(const std::string& text) {
  const auto characters = CharactersOf(text);
  return !characters.empty() && (IsBlank(characters.front()) || IsBlank(characters.back()));
}

}  // namespace td::checker
