#include "calibration_input.h"

#include <array>
#include <cctype>
#include <cmath>
#include <istream>
#include <locale>
#include <ostream>
#include <sstream>

#include "page_document/offered_papers.h"

namespace td {
namespace {

constexpr std::array kCorners = {
    Sentence{"top left cross, from the left edge and from the top edge",
             "左上十字：到左边缘、到上边缘"},
    Sentence{"top right cross, from the right edge and from the top edge",
             "右上十字：到右边缘、到上边缘"},
    Sentence{"bottom left cross, from the left edge and from the bottom edge",
             "左下十字：到左边缘、到下边缘"},
};

constexpr Sentence kTwoNumbers{"Two numbers in millimetres are wanted, such as 20.3 19.8.",
                               "请输入两个数，单位毫米，例如 20.3 19.8。"};

// Letters beyond those of English stay as they are.
std::string InLowerCase(std::string_view text) {
  std::string lower(text);
  for (char& letter : lower) {
    const auto byte = static_cast<unsigned char>(letter);
    if (byte < 0x80) letter = static_cast<char>(std::tolower(byte));
  }
  return lower;
}

// Two numbers with one of the separators, or with blanks, between them.
template <std::size_t Count>
std::optional<Distances> TwoNumbers(std::string text,
                                    const std::array<std::string_view, Count>& separators) {
  for (const std::string_view separator : separators) {
    const std::size_t at = text.find(separator);
    if (at == std::string::npos) continue;
    text.replace(at, separator.size(), " ");
    break;
  }
  std::istringstream numbers(text);
  numbers.imbue(std::locale::classic());
  Distances read;
  std::string rest;
  if (!(numbers >> read.across >> read.along) || numbers >> rest) return std::nullopt;
  return read;
}

}  // namespace

std::optional<PaperExtent> SheetNamed(const std::string& text) {
  const std::string name = InLowerCase(text);
  for (const OfferedPaper& paper : OfferedPapers()) {
    if (name == InLowerCase(paper.english) || name == InLowerCase(paper.chinese)) {
      return StandardPaper(paper.code);
    }
  }
  const auto sides = TwoNumbers(name, std::array<std::string_view, 3>{"x", "×", "*"});
  if (!sides || !std::isfinite(sides->across) || !std::isfinite(sides->along)) return std::nullopt;
  return PaperExtent{sides->across * kTwipsPerMillimetre, sides->along * kTwipsPerMillimetre};
}

std::optional<Distances> ParseDistances(const std::string& text) {
  const auto read = TwoNumbers(text, std::array<std::string_view, 2>{",", "，"});
  const auto isDistance = [](double number) { return std::isfinite(number) && number > 0; };
  return read && isDistance(read->across) && isDistance(read->along) ? read : std::nullopt;
}

std::string NumberText(double number) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << number;
  return text.str();
}

std::string SheetText(const Distances& sheet) {
  return NumberText(sheet.across) + " × " + NumberText(sheet.along) + " mm";
}

std::string SheetOption(const Distances& sheet) {
  return NumberText(sheet.across) + "x" + NumberText(sheet.along);
}

std::string_view CornerText(Corner corner, Language language) {
  return kCorners[static_cast<std::size_t>(corner)].In(language);
}

std::optional<Distances> AskForDistances(std::istream& answers, std::ostream& questions,
                                         Corner corner, Language language) {
  for (;;) {
    questions << CornerText(corner, language) << ": " << std::flush;
    std::string answer;
    if (!std::getline(answers, answer)) return std::nullopt;
    if (answer.find_first_not_of(" \t\r") == std::string::npos) return std::nullopt;
    if (const auto distances = ParseDistances(answer)) return distances;
    questions << kTwoNumbers.In(language) << "\n";
  }
}

}  // namespace td
