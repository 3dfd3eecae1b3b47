// One section of a number picture.
#pragma once

#include <string>
#include <vector>

#include "text/decimal_digits.h"
#include "text/picture_sections.h"

namespace td {

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

}  // namespace td
