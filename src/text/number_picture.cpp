#include "text/number_picture.h"

#include <cstddef>

#include "text/number_section.h"

namespace td {

namespace {

constexpr std::size_t kNegativeSection = 1;
constexpr std::size_t kZeroSection = 2;
constexpr std::size_t kNullSection = 3;

bool HasSection(const std::vector<PictureSection>& sections, std::size_t index) {
  return index < sections.size() && !sections[index].empty();
}

std::string FormatZero(const std::vector<PictureSection>& sections) {
  const std::size_t index = HasSection(sections, kZeroSection) ? kZeroSection : 0;
  if (sections[index].empty()) return GeneralNumber({});
  return NumberSection(sections[index]).Write({});
}

}  // namespace

std::string FormatNumber(const DecimalDigits& number, const std::vector<PictureSection>& sections) {
  const bool ownSection = number.negative && HasSection(sections, kNegativeSection);
  const PictureSection& marks = sections[ownSection ? kNegativeSection : 0];
  if (marks.empty() && !number.IsZero()) return GeneralNumber(number);
  const NumberSection section(marks);
  const NumberSection::Shown shown = section.Round(number);
  if (shown.digits.IsZero()) return FormatZero(sections);
  return (number.negative && !ownSection ? "-" : "") + section.Write(shown);
}

std::string FormatNullNumber(const std::vector<PictureSection>& sections) {
  if (!HasSection(sections, kNullSection)) return {};
  return NumberSection(sections[kNullSection]).Write({});
}

}  // namespace td
