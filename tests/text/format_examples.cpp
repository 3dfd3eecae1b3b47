#include "format_examples.h"

#include <chrono>
#include <cstddef>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace td {

namespace {

constexpr const char* kTableHead = "| Value | Picture | Result |";
constexpr const char* kEnglishHead = "## In English";

std::string Within(const std::string& text, char first, char last) {
  if (text.size() < 2 || text.front() != first || text.back() != last) {
    throw std::runtime_error("not enclosed: " + text);
  }
  return text.substr(1, text.size() - 2);
}

// The content of a cell, which stands between backquotes unless it is empty.
std::string Content(const std::string& cell) {
  return cell.find_first_not_of(' ') == std::string::npos
             ? std::string()
             : Within(cell.substr(1, cell.size() - 2), '`', '`');
}

// 2024-05-01, 2024-05-01 13:05:09 or 13:05:09
Date ParseDate(const std::string& text) {
  std::istringstream in(text);
  char mark = 0;
  double serial = 0;
  if (text.size() >= 10) {
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    in >> year >> mark >> month >> mark >> day;
    using namespace std::chrono;
    const sys_days date{
        year_month_day{std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}}};
    serial = static_cast<double>((date - sys_days{December / 30 / 1899}).count());
  }
  if (text.find(':') != std::string::npos) {
    int hour = 0;
    int minute = 0;
    int second = 0;
    in >> hour >> mark >> minute >> mark >> second;
    serial += (hour * 3600 + minute * 60 + second) / 86400.0;
  }
  if (in.fail()) throw std::runtime_error("no date: " + text);
  return Date{serial};
}

Value ParseValue(const std::string& text) {
  if (text == "Null") return Null{};
  if (text == "True") return true;
  if (text == "False") return false;
  if (text.front() == '"') return Within(text, '"', '"');
  if (text.front() == '#') return ParseDate(Within(text, '#', '#'));
  if (text.find_first_of(".E") != std::string::npos) return std::stod(text);
  return std::int64_t{std::stoll(text)};
}

FormatExample ParseRow(const std::string& row) {
  const std::size_t first = row.find('|', 1);
  const std::size_t second = row.find('|', first + 1);
  if (second == std::string::npos || row.find('|', second + 1) != row.size() - 1) {
    throw std::runtime_error("not three cells: " + row);
  }
  FormatExample example;
  example.value = ParseValue(Content(row.substr(1, first - 1)));
  example.picture = Content(row.substr(first + 1, second - first - 1));
  example.result = Within(Content(row.substr(second + 1, row.size() - second - 2)), '"', '"');
  return example;
}

}  // namespace

std::vector<FormatExample> ReadFormatExamples(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("can't open " + path);
  std::vector<FormatExample> examples;
  auto language = FormatLanguage::kChinese;
  bool inTable = false;
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    if (line == kEnglishHead) language = FormatLanguage::kEnglish;
    if (line == kTableHead) {
      inTable = true;
      std::getline(file, line);  // the rule below the head
      ++number;
      continue;
    }
    if (line.empty() || line.front() != '|') inTable = false;
    if (!inTable) continue;
    examples.push_back(ParseRow(line));
    examples.back().line = number;
    examples.back().language = language;
  }
  return examples;
}

}  // namespace td
