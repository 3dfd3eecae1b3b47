#include "text/number_section.h"

#include <cstddef>
#include <cstdlib>

namespace td {

namespace {

constexpr std::string_view kPlaces = "0#";

}  // namespace

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

}  // namespace td
