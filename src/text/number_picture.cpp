#include "text/number_picture.h"

#include <cstddef>
#include <cstdlib>
#include <string_view>

namespace td {

namespace {

constexpr std::string_view kPlaces = "0#";

// One section of a number picture.
class NumberSection {
 public:
  explicit NumberSection(const PictureSection& marks);

  // A number as the section shows it: `digits` times ten to the power of `exponent`, scaled and
  // rounded to the section's places. A section without places rounds nothing.
  struct Shown {
    DecimalDigits digits;
    int exponent = 0;
  };
  [[nodiscard]] Shown Round(DecimalDigits number) const;

  // The text of a number that Round gave, without a sign.
  [[nodiscard]] std::string Write(const Shown& shown) const;

 private:
  enum class Kind { kLiteral, kIntegerPlace, kPoint, kFractionPlace, kExponent };
  struct Element {
    Kind kind;
    std::string text;           // of a literal; of an exponent its letter
    bool filled = false;        // a place that shows a zero where the number has no digit
    bool plusSign = false;      // an exponent that shows the sign even if it isn't negative
    std::size_t minDigits = 1;  // of an exponent
  };

  [[nodiscard]] bool HasPlaces() const { return integerPlaces_ + fractionPlaces_ > 0; }
  [[nodiscard]] bool StartsExponent(const PictureSection& marks, std::size_t at) const;
  void AddPlace(bool filled);
  void AddPoint();
  std::size_t AddExponent(const PictureSection& marks, std::size_t at);
  void AddLiteral(std::string_view text);
  void DivideByOpenCommas();

  void WriteIntegerPlace(std::string& text, const std::string& digits, int index,
                         bool filled) const;

  std::vector<Element> elements_;
  int integerPlaces_ = 0;
  int fractionPlaces_ = 0;
  int lastFilledFraction_ = -1;  // index of the last fraction place that shows zeros
  int percents_ = 0;
  int thousands_ = 0;   // divisions by a thousand
  int openCommas_ = 0;  // commas behind the last place so far
  bool hasPoint_ = false;
  bool hasExponent_ = false;
  bool grouping_ = false;
};

NumberSection::NumberSection(const PictureSection& marks) {
  for (std::size_t at = 0; at < marks.size(); ++at) {
    const PictureMark& mark = marks[at];
    if (mark.IsOneOf(kPlaces)) {
      AddPlace(mark.Is('0'));
    } else if (mark.Is('.') && !hasPoint_) {
      AddPoint();
    } else if (mark.Is(',')) {
      ++openCommas_;
    } else if (StartsExponent(marks, at)) {
      at = AddExponent(marks, at);
    } else {
      if (mark.Is('%')) ++percents_;
      AddLiteral(mark.text);
    }
  }
  DivideByOpenCommas();
}

void NumberSection::AddPlace(bool filled) {
  if (hasPoint_) {
    openCommas_ = 0;
    if (filled) lastFilledFraction_ = fractionPlaces_;
    ++fractionPlaces_;
    elements_.push_back({Kind::kFractionPlace, {}, filled});
  } else {
    if (openCommas_ > 0) grouping_ = true;
    openCommas_ = 0;
    ++integerPlaces_;
    elements_.push_back({Kind::kIntegerPlace, {}, filled});
  }
}

void NumberSection::AddPoint() {
  DivideByOpenCommas();
  hasPoint_ = true;
  elements_.push_back({Kind::kPoint, {}});
}

void NumberSection::AddLiteral(std::string_view text) {
  elements_.push_back({Kind::kLiteral, std::string(text)});
}

// Commas with no place between them and the point, the exponent or the end divide.
void NumberSection::DivideByOpenCommas() {
  thousands_ += openCommas_;
  openCommas_ = 0;
}

bool NumberSection::StartsExponent(const PictureSection& marks, std::size_t at) const {
  return HasPlaces() && !hasExponent_ && at + 2 < marks.size() && marks[at].IsOneOf("Ee") &&
         marks[at + 1].IsOneOf("+-") && marks[at + 2].IsOneOf(kPlaces);
}

// Returns the index of the exponent's last mark.
std::size_t NumberSection::AddExponent(const PictureSection& marks, std::size_t at) {
  DivideByOpenCommas();
  hasExponent_ = true;
  Element exponent{Kind::kExponent, std::string(marks[at].text)};
  exponent.plusSign = marks[at + 1].Is('+');
  std::size_t filledPlaces = 0;
  std::size_t next = at + 2;
  for (; next < marks.size() && marks[next].IsOneOf(kPlaces); ++next) {
    if (filledPlaces > 0 || marks[next].Is('0')) ++filledPlaces;
  }
  if (filledPlaces > 0) exponent.minDigits = filledPlaces;
  elements_.push_back(exponent);
  return next - 1;
}

NumberSection::Shown NumberSection::Round(DecimalDigits number) const {
  if (number.IsZero() || !HasPlaces()) return {number};
  number.point += 2 * percents_ - 3 * thousands_;
  if (!hasExponent_) return {RoundToPlaces(number, fractionPlaces_)};
  Shown shown;
  shown.exponent = number.point - integerPlaces_;
  number.point = integerPlaces_;
  shown.digits = RoundToPlaces(number, fractionPlaces_);
  if (shown.digits.point > integerPlaces_) {  // 9.99 became 10.0
    --shown.digits.point;
    ++shown.exponent;
  }
  return shown;
}

// Writes the digit with `index` integer places to its right, before the first place those for
// which the section has no place.
void NumberSection::WriteIntegerPlace(std::string& text, const std::string& digits, int index,
                                      bool filled) const {
  const int count = static_cast<int>(digits.size());
  const bool first = index == integerPlaces_ - 1;
  if (index >= count && !filled) return;
  for (int i = first && count > index ? count - 1 : index; i >= index; --i) {
    text += i < count ? digits[static_cast<std::size_t>(count - 1 - i)] : '0';
    if (grouping_ && i > 0 && i % 3 == 0) text += ',';
  }
}

std::string NumberSection::Write(const Shown& shown) const {
  const DecimalDigits& number = shown.digits;
  const std::string integer = number.point > 0 ? IntegerDigits(number) : "";
  const std::string fraction = FractionDigits(number, fractionPlaces_);
  const std::size_t lastDigit = fraction.find_last_not_of('0');
  int lastFraction = lastFilledFraction_;
  if (lastDigit != std::string::npos) {
    lastFraction = std::max(lastFraction, static_cast<int>(lastDigit));
  }

  std::string text;
  int integerIndex = integerPlaces_;
  int fractionIndex = 0;
  bool filled = false;
  for (const Element& element : elements_) {
    switch (element.kind) {
      case Kind::kLiteral:
        text += element.text;
        break;
      case Kind::kIntegerPlace:
        filled = filled || element.filled;
        WriteIntegerPlace(text, integer, --integerIndex, filled);
        break;
      case Kind::kPoint:
        if (integerPlaces_ == 0 && HasPlaces()) text += integer;
        text += '.';
        break;
      case Kind::kFractionPlace:
        if (fractionIndex <= lastFraction)
          text += fraction[static_cast<std::size_t>(fractionIndex)];
        ++fractionIndex;
        break;
      case Kind::kExponent:
        text += element.text;
        if (shown.exponent < 0) text += '-';
        if (shown.exponent >= 0 && element.plusSign) text += '+';
        text += PaddedNumber(std::abs(shown.exponent), element.minDigits);
        break;
    }
  }
  return text;
}

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
