#include "recording/masking.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <random>
#include <regex>
#include <set>
#include <string>
#include <string_view>

#include "text/characters.h"
#include "text/conversions.h"

namespace td::recording {
namespace {

constexpr const char* kMachine = "192.168.1.10";
constexpr const char* kOtherMachine = "0.0.0.0";
constexpr double kMarkerQty = -999.99;

// Without E, which could make a number of a text, and 锁, which could make a lock of a message.
constexpr std::string_view kCapitals = "ABCDFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view kSmallLetters = "abcdfghijklmnopqrstuvwxyz";
constexpr std::array<std::string_view, 32> kChinese = {
    "天", "地", "玄", "黄", "宇", "宙", "洪", "荒", "日", "月", "盈", "昃", "辰", "宿", "列", "张",
    "寒", "来", "暑", "往", "秋", "收", "冬", "藏", "闰", "余", "成", "岁", "律", "吕", "调", "阳"};

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// From U+2E80 to U+D7FF: ideographs, kana and the like; the punctuation among them stays.
bool IsEastAsian(std::string_view character) {
  if (character.size() != 3) return character.size() == 4 && character >= "\xF0\xA0\x80\x80";
  const bool isPunctuation = character >= "\xE3\x80\x80" && character < "\xE3\x81\x80";
  return character >= "\xE2\xBA\x80" && character < "\xEE\x80\x80" && !isPunctuation;
}

// Accented, Greek and Russian letters have two bytes, as this one has.
constexpr std::string_view kOtherLetter = "ä";

bool IsOtherLetter(std::string_view character) {
  return character.size() == 2 && character >= "\xC3\x80";
}

class Mask {
 public:
  // By column, as the run uses it.
  Json Value(const std::string& column, const Json& value) {
    if (value.is_null() || value.is_boolean() || column == "fitemid") return value;
    if (column == "fmainqty" && IsMarker(value)) return value;
    if (column == "finterid") return Grouped(identities_, value);
    if (column == "fstockarea" && value.is_string()) return Area(value.get<std::string>());
    // What repeats on each row of a bill goes on doing so.
    const auto [place, isNew] = known_.try_emplace(column + "\n" + value.dump());
    if (isNew) place->second = Other(value);
    while (column == "fmainqty" && IsMarker(place->second)) place->second = Other(value);
    return place->second;
  }

 private:
  static bool IsMarker(const Json& value) {
    const td::Value stored = ToValue(value, "");
    return IsNumeric(stored) && ToDouble(stored) == kMarkerQty;
  }

  std::size_t Draw(std::size_t count) { return static_cast<std::size_t>(random_() % count); }
  char Digit(bool mayBeZero) {
    return static_cast<char>(mayBeZero ? '0' + Draw(10) : '1' + Draw(9));
  }

  Json Other(const Json& value) {
    if (value.is_string()) return Text(value.get<std::string>());
    if (value.is_number_integer()) return Whole(value.get<std::int64_t>());
    if (value.is_number()) return Real(value.get<double>());
    Json bytes = value;  // {"base64":"…"}
    std::string text = bytes["base64"].get<std::string>();
    for (char& c : text) c = c == '=' ? '=' : 'A';
    bytes["base64"] = text;
    return bytes;
  }

  // The same value becomes the same one, and others become others, so that rows stay together.
  Json Grouped(std::map<std::string, Json>& known, const Json& value) {
    const auto [place, isNew] = known.try_emplace(value.dump(), value);
    if (!isNew) return place->second;
    constexpr int kTries = 1000;
    Json masked = Other(value);
    for (int tries = 1; !used_.insert(masked.dump()).second; ++tries) {
      // There are more characters than those that masks are made of.
      masked = tries > kTries && value.is_string() ? Json(AnyIdeograph()) : Other(value);
    }
    place->second = masked;
    return masked;
  }

  std::string AnyIdeograph() {
    const std::size_t code = 0x4E00 + Draw(0x4000);  // all below 锁
    return {static_cast<char>(0xE0 | code >> 12), static_cast<char>(0x80 | (code >> 6 & 0x3F)),
            static_cast<char>(0x80 | (code & 0x3F))};
  }

  // The first character decides where a page begins.
  std::string Area(const std::string& area) {
    if (area.empty()) return area;
    std::string_view rest = area;
    const std::string first(TakeCharacter(rest));
    const Json group = Grouped(areas_, first);
    return group.get<std::string>() + Text(std::string(rest));
  }

  // Digits of a number: leading zeros stay, the first other digit and the last one are no zeros.
  std::string Digits(std::string text) {
    const auto first = text.find_first_of("123456789");
    if (first == std::string::npos) return text;
    const auto end = std::min(text.find_first_of("eE"), text.size());
    const auto last = text.find_last_of("0123456789", end - 1);
    const bool isEndFixed = text.find('.') < last || text[last] != '0';
    for (auto i = first; i <= last; ++i) {
      if (IsDigit(text[i])) text[i] = Digit(i != first && !(i == last && isEndFixed));
    }
    return text;
  }

  // At most 9 digits of a number may grow: longer ones keep the first, and their width of 32 bits.
  std::int64_t Whole(std::int64_t number) {
    const std::string text = ToText(number);
    std::string masked = Digits(text);
    constexpr std::size_t kMostFree = 9;
    if (text.size() > kMostFree) {
      const auto first = text.find_first_of("123456789");
      masked[first] = text[first];
      if (first + 1 < masked.size()) masked[first + 1] = '0';
    }
    std::int64_t whole = number;
    std::from_chars(masked.data(), masked.data() + masked.size(), whole);
    return whole;
  }

  double Real(double number) {
    const std::string masked = Digits(ToText(number));
    double real = number;
    std::from_chars(masked.data(), masked.data() + masked.size(), real);
    return real;
  }

  std::string Text(const std::string& text) {
    if (IsNumeric(td::Value(text))) return Digits(text);
    static const std::regex kDate("(\\d{4})([-/.]|年)(\\d{1,2})([-/.]|月)(\\d{1,2})(.*)");
    std::smatch parts;
    if (std::regex_match(text, parts, kDate)) {
      return "20" + std::to_string(Draw(3)) + std::to_string(Draw(10)) + parts[2].str() +
             Part(parts[3].str().size(), 12) + parts[4].str() + Part(parts[5].str().size(), 28) +
             Time(parts[6].str());
    }
    return Characters(text);
  }

  // A month or a day of so many digits.
  std::string Part(std::size_t digits, std::size_t most) {
    const std::size_t number = 1 + Draw(digits == 1 ? 9 : most);
    return (digits == 2 && number < 10 ? "0" : "") + std::to_string(number);
  }

  std::string Time(const std::string& text) {
    static const std::regex kTime("(.*)(\\d\\d):(\\d\\d)(:(\\d\\d))?(.*)");
    std::smatch parts;
    if (!std::regex_match(text, parts, kTime)) return Characters(text);
    return Characters(parts[1].str()) + Part(2, 23) + ":" + Part(2, 59) +
           (parts[4].matched ? ":" + Part(2, 59) : "") + Characters(parts[6].str());
  }

  std::string Characters(const std::string& text) {
    std::string masked;
    std::string number;  // digits that stand together
    std::string_view rest = text;
    while (!rest.empty()) {
      const std::string_view character = TakeCharacter(rest);
      if (character.size() == 1 && IsDigit(character.front())) {
        number += character;
        continue;
      }
      masked += Digits(number) + Character(character);
      number.clear();
    }
    return masked + Digits(number);
  }

  std::string Character(std::string_view character) {
    const char c = character.front();
    if (c >= 'A' && c <= 'Z') return {kCapitals[Draw(kCapitals.size())]};
    if (c >= 'a' && c <= 'z') return {kSmallLetters[Draw(kSmallLetters.size())]};
    if (IsEastAsian(character)) return std::string(kChinese[Draw(kChinese.size())]);
    if (IsOtherLetter(character)) return std::string(kOtherLetter);
    return std::string(character);
  }

  std::mt19937 random_{20240229};      // what is drawn depends on no value
  std::map<std::string, Json> known_;  // by column and value
  std::map<std::string, Json> identities_;
  std::map<std::string, Json> areas_;
  std::set<std::string> used_;
};

void MaskData(Json& data) {
  if (!data.is_object()) return;
  Mask mask;
  const std::vector<std::string> columns = data["columns"];
  for (Json& row : data["rows"]) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      row[i] = mask.Value(LowerCase(columns[i]), row[i]);
    }
  }
}

// Puts another value into each place of a column that isn't Null.
template <class Change>
void ChangeColumn(Json& scenario, const char* table, std::string_view column, Change&& change) {
  if (!scenario.contains("tables") || !scenario["tables"].contains(table)) return;
  Json& json = scenario["tables"][table];
  for (std::size_t i = 0; i < json["columns"].size(); ++i) {
    if (LowerCase(json["columns"][i].get<std::string>()) != column) continue;
    for (Json& row : json["rows"]) {
      if (!row[i].is_null()) row[i] = change(row[i]);
    }
  }
}

}  // namespace

Json Masked(const Json& scenario) {
  Json masked = scenario;
  const Json machine = scenario.value("machine", Json(kMachine));
  masked["machine"] = kMachine;
  ChangeColumn(masked, "TDBill_PaperSize", "fip",
               [&](const Json& address) { return address == machine ? kMachine : kOtherMachine; });
  ChangeColumn(masked, "t_icitem_Picture", "fpicture", [](const Json& /*picture*/) {
    return Json{{"base64", "AA=="}};
  });
  ChangeColumn(masked, "t_icitem_Picture", "fpicpath", [](const Json& /*path*/) { return ""; });
  for (Json& call : masked["calls"]) {
    if (call.contains("data")) MaskData(call["data"]);
  }
  return masked;
}

}  // namespace td::recording
