#include "text/date_picture.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "text/calendar.h"
#include "text/conversions.h"
#include "text/decimal_digits.h"
#include "text/language_words.h"

namespace td {

namespace {

constexpr std::string_view kShortDate = "yyyy-mm-dd";
constexpr std::string_view kLongTime = "hh:nn:ss";

// The parts of a date picture in lower case. Of those that begin alike the longest comes first.
constexpr std::array<std::string_view, 27> kParts{
    "am/pm", "ampm", "a/p", "dddddd", "ddddd", "dddd", "ddd",   "dd", "d",
    "mmmm",  "mmm",  "mm",  "m",      "yyyy",  "yy",   "y",     "ww", "w",
    "hh",    "h",    "nn",  "n",      "ss",    "s",    "ttttt", "q",  "c",
};

bool StandsAt(std::string_view part, const PictureSection& section, std::size_t at) {
  if (section.size() - at < part.size()) return false;
  for (std::size_t i = 0; i < part.size(); ++i) {
    const PictureMark& mark = section[at + i];
    if (mark.literal || LowerCase(mark.text) != part.substr(i, 1)) return false;
  }
  return true;
}

// The part that begins at a mark, empty if none does.
std::string_view PartAt(const PictureSection& section, std::size_t at) {
  const auto* const found =
      std::find_if(kParts.begin(), kParts.end(),
                   [&section, at](std::string_view part) { return StandsAt(part, section, at); });
  return found == kParts.end() ? std::string_view{} : *found;
}

// A part, or with an empty name a text that stands as it is.
struct Element {
  std::string_view part;
  std::string_view text;
};

std::vector<Element> ReadElements(const PictureSection& section) {
  std::vector<Element> elements;
  for (std::size_t at = 0; at < section.size();) {
    const std::string_view part = PartAt(section, at);
    elements.push_back({part, section[at].text});
    at += part.empty() ? 1 : part.size();
  }
  return elements;
}

bool IsHalfDay(std::string_view part) {
  return !part.empty() && part[0] == 'a';
}

class Writer {
 public:
  Writer(double serial, FormatLanguage language)
      : serial_(serial),
        language_(language),
        time_(ReadSerial(serial)),
        words_(WordsOf(language)) {}

  std::string Write(const PictureSection& section) {
    const std::vector<Element> elements = ReadElements(section);
    twelveHours_ = std::any_of(elements.begin(), elements.end(),
                               [](const Element& element) { return IsHalfDay(element.part); });
    std::string text;
    bool behindHour = false;
    for (const Element& element : elements) {
      if (element.part.empty()) {
        text += element.text;
        continue;
      }
      text += Part(element, behindHour);
      behindHour = element.part[0] == 'h';
    }
    return text;
  }

 private:
  std::string Part(const Element& element, bool behindHour) const {
    const std::string_view part = element.part;
    switch (part[0]) {
      case 'a':
        return HalfDay(element);
      case 'c':
        return General();
      case 'd':
        return Day(part.size());
      case 'm':
        if (behindHour && part.size() <= 2) return PaddedNumber(time_.minute, part.size());
        return Month(part.size());
      case 'y':
        return Year(part.size());
      case 'w':
        return PaddedNumber(part.size() == 2 ? Week() : time_.weekday + 1, 1);
      case 'q':
        return PaddedNumber((time_.month + 2) / 3, 1);
      case 'h':
        return PaddedNumber(Hour(), part.size());
      case 'n':
        return PaddedNumber(time_.minute, part.size());
      case 's':
        return PaddedNumber(time_.second, part.size());
      default:
        return Nested(kLongTime);
    }
  }

  // "AM/PM" and "A/P" are shown in the picture's own letters, "AMPM" in the language's words.
  std::string HalfDay(const Element& element) const {
    const bool forenoon = time_.hour < 12;
    if (element.part == "ampm") return std::string(forenoon ? words_.forenoon : words_.afternoon);
    std::string text = forenoon ? "AM" : "PM";
    if (element.part == "a/p") text.resize(1);
    return element.text == "a" ? LowerCase(text) : text;
  }

  // Only the date if there is no time of day, only the time on the day of serial 0.
  std::string General() const {
    if (time_.days == 0) return Nested(kLongTime);
    return Nested(kShortDate) + (time_.HasTime() ? " " + Nested(kLongTime) : "");
  }

  std::string Day(std::size_t letters) const {
    const auto weekday = static_cast<std::size_t>(time_.weekday);
    switch (letters) {
      case 3:
        return std::string(words_.shortWeekdays[weekday]);
      case 4:
        return std::string(words_.weekdays[weekday]);
      case 5:
        return Nested(kShortDate);
      case 6:
        return Nested(words_.longDate);
      default:
        return PaddedNumber(time_.day, letters);
    }
  }

  std::string Month(std::size_t letters) const {
    const auto month = static_cast<std::size_t>(time_.month - 1);
    if (letters == 3) return std::string(words_.shortMonths[month]);
    if (letters == 4) return std::string(words_.months[month]);
    return PaddedNumber(time_.month, letters);
  }

  std::string Year(std::size_t letters) const {
    if (letters == 1) return PaddedNumber(time_.dayOfYear, 1);
    if (letters == 2) return PaddedNumber(time_.year % 100, 2);
    return PaddedNumber(time_.year, 4);
  }

  // Weeks start on Sunday, and the first one holds 1 January.
  int Week() const {
    constexpr int kDaysPerWeek = 7;
    const int daysSinceNewYear = time_.dayOfYear - 1;
    // Counted from the Sunday on which the week of this day starts; 7 keeps it from below 0.
    return (daysSinceNewYear - time_.weekday + kDaysPerWeek - 1) / kDaysPerWeek + 1;
  }

  int Hour() const {
    if (!twelveHours_) return time_.hour;
    return time_.hour % 12 == 0 ? 12 : time_.hour % 12;
  }

  std::string Nested(std::string_view picture) const {
    return FormatSerial(serial_, ReadSections(picture).front(), language_);
  }

  double serial_;
  FormatLanguage language_;
  CalendarTime time_;
  const LanguageWords& words_;
  bool twelveHours_ = false;
};

}  // namespace

bool BeginsDatePart(const PictureSection& section, std::size_t at) {
  return !PartAt(section, at).empty();
}

std::string FormatSerial(double serial, const PictureSection& section, FormatLanguage language) {
  return Writer(serial, language).Write(section);
}

}  // namespace td
