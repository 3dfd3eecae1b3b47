#include "found_text.h"

#include <algorithm>
#include <cmath>

namespace td {
namespace {

constexpr double kTwipsPerPoint = 20;

bool IsClose(double one, double other) {
  return std::abs(one - other) <= kTolerance;
}

double SizeOf(const PlacedText& expected) {
  return expected.item.fontSize * kTwipsPerPoint;
}

// The word that goes on with `rest` to the right of another one, at most a wide blank away.
const PrintedWord* Next(const PrintedPage& page, const PrintedWord& last, const std::string& rest,
                        double size) {
  const PrintedWord* next = nullptr;
  for (const PrintedWord& word : page.words) {
    const double gap = word.area.left - last.area.Right();
    const bool follows = gap > -kTolerance && gap < 1.5 * size && rest.starts_with(word.text) &&
                         std::abs(CentreY(word.area) - CentreY(last.area)) < size / 10;
    if (follows && (next == nullptr || word.area.left < next->area.left)) next = &word;
  }
  return next;
}

std::vector<PrintedWord> WordsFrom(const PrintedPage& page, const PrintedWord& first,
                                   const std::string& text, double size) {
  if (!text.starts_with(first.text)) return {};
  std::vector<PrintedWord> words = {first};
  for (std::size_t length = first.text.size(); length < text.size();) {
    const PrintedWord* next = Next(page, words.back(), text.substr(length), size);
    if (next == nullptr) return {};
    words.push_back(*next);
    length += next->text.size();
  }
  return words;
}

bool StandsAt(const std::vector<PrintedWord>& words, const PlacedText& expected) {
  if (words.empty()) return false;
  const double size = SizeOf(expected);
  const Area& area = expected.area;
  const double left = words.front().area.left;
  const double right = words.back().area.Right();
  const double height = CentreY(words.front().area);
  if (expected.item.hasNoBox) {
    return IsClose(left, area.left) && height > area.top + size / 2 && height < area.top + size;
  }
  if (std::abs(height - CentreY(area)) > size / 10) return false;
  if (expected.item.field == "ftotalpageno" || expected.item.side == Side::kCentre) {
    return IsClose((left + right) / 2, CentreX(area));
  }
  return expected.item.side == Side::kLeft ? IsClose(left, area.left)
                                           : IsClose(right, area.Right());
}

bool IsOfLetters(const std::string& text) {
  return static_cast<unsigned char>(text[0]) < 0x80;
}

}  // namespace

double CentreX(const Area& area) {
  return area.left + area.width / 2;
}
double CentreY(const Area& area) {
  return area.top + area.height / 2;
}

std::string WithoutBlanks(std::string text) {
  for (const std::string blank : {" ", "　"}) {
    for (std::size_t at = text.find(blank); at != std::string::npos; at = text.find(blank, at)) {
      text.erase(at, blank.size());
    }
  }
  return text;
}

std::optional<std::vector<PrintedWord>> FindText(const PrintedPage& page,
                                                 const PlacedText& expected) {
  const std::string text = WithoutBlanks(expected.text);
  for (const PrintedWord& word : page.words) {
    std::vector<PrintedWord> words = WordsFrom(page, word, text, SizeOf(expected));
    if (StandsAt(words, expected)) return words;
  }
  return std::nullopt;
}

std::string TextInside(const PrintedPage& page, const Area& area) {
  std::vector<PrintedWord> words;
  for (const PrintedWord& word : page.words) {
    const bool isInside = word.area.left >= area.left - kTolerance &&
                          word.area.Right() <= area.Right() + kTolerance &&
                          CentreY(word.area) > area.top && CentreY(word.area) < area.Bottom();
    if (isInside) words.push_back(word);
  }
  std::stable_sort(words.begin(), words.end(), [](const PrintedWord& one, const PrintedWord& two) {
    const bool isOtherLine = std::abs(CentreY(one.area) - CentreY(two.area)) >
                             std::min(one.area.height, two.area.height) / 2;
    return isOtherLine ? one.area.top < two.area.top : one.area.left < two.area.left;
  });
  std::string text;
  for (const PrintedWord& word : words) text += word.text;
  return text;
}

void BaseLines::Add(const PlacedText& expected, const PrintedWord& word) {
  if (expected.item.hasNoBox) return;
  std::string face = "characters";
  if (IsOfLetters(word.text)) {
    const long share = std::lround(100 * word.area.height / SizeOf(expected));
    face = expected.item.font + " " + std::to_string(expected.item.fontSize) +
           (expected.item.bold ? " bold " : " ") + std::to_string(share);
  }
  byFace_[face].push_back({word.text, CentreY(word.area) - CentreY(expected.area)});
}

std::string BaseLines::Uneven() const {
  std::string uneven;
  for (const auto& [face, deviations] : byFace_) {
    const double usual = face == "characters" ? 0 : deviations[deviations.size() / 2].twips;
    for (const Deviation& deviation : deviations) {
      if (IsClose(deviation.twips, usual)) continue;
      uneven += deviation.text + " by " + std::to_string(deviation.twips - usual) + " twips; ";
    }
  }
  return uneven;
}

}  // namespace td
