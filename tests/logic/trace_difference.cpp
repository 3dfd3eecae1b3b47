#include "trace_difference.h"

#include <algorithm>
#include <cstddef>

#include "recording/replay.h"

namespace td {
namespace {

// A text as it is, everything else as JSON.
std::string Plain(const Json& value) {
  return value.is_string() ? value.get<std::string>() : value.dump();
}

std::string QueryLine(const std::string& sql) {
  static const std::string site = "t2.FSite=";
  const std::size_t at = sql.find(site);
  if (at == std::string::npos) return "query " + sql;
  const bool onlyLines = sql.find("t2.FTypeID=1", at) != std::string::npos;
  return "band " + sql.substr(at + site.size(), 1) + (onlyLines ? " lines" : "");
}

std::string CallLine(const Json& line) {
  std::string text = line.at("f");
  const Json& arguments = line.at("a");
  const bool isPlaced = arguments.size() > 2;
  // Sizes are those of the item, in both windows.
  const std::size_t count = isPlaced && arguments[0].is_string() ? 3 : arguments.size();
  for (std::size_t i = 0; i < count; ++i) {
    text += (i == 2 && isPlaced ? "," : " ") + Plain(arguments[i]);
  }
  return text;
}

std::string AfterLine(const Json& line) {
  std::string text = "after";
  for (const auto& [key, value] : line.items()) {
    if (key != "e" && key != "do") text += " " + key + "=" + Plain(value);
  }
  return text;
}

std::string LineOf(const Json& line) {
  const std::string kind = line.at("e");
  if (kind == "query") return QueryLine(line.at("sql"));
  if (kind == "put") return "put " + line.at("p").get<std::string>() + " " + Plain(line.at("v"));
  if (kind == "call") return CallLine(line);
  if (kind == "event") return line.at("n");
  if (kind == "after") return AfterLine(line);
  if (kind == "show" || kind == "unload") return kind;
  if (kind == "box") return "box " + Plain(line.at("text"));
  if (kind == "pagetext" || kind == "barcode") return kind + " " + Plain(line.at("v"));
  return recording::LineText(line);
}

bool IsPut(const Json& line, const char* property) {
  return line.at("e") == "put" && line.at("p") == property;
}

// The put of a text item's point, font and alignment, as one line. `at` goes behind them.
std::string PlaceLine(const std::vector<Json>& lines, std::size_t& at) {
  static const std::vector<std::pair<const char*, Json>> usual = {{"FontName", "宋体"},
                                                                  {"FontSize", 9},
                                                                  {"FontBold", false},
                                                                  {"FontItalic", false},
                                                                  {"TextAlign", 6}};
  std::string text = "place " + Plain(lines[at].at("v"));
  ++at;
  if (at < lines.size() && IsPut(lines[at], "CurrentY")) text += "," + Plain(lines[at++].at("v"));
  for (const auto& [property, value] : usual) {
    if (at == lines.size() || !IsPut(lines[at], property)) {
      text += std::string(" no ") + property;
      continue;
    }
    const Json& put = lines[at++].at("v");
    if (put != value) text += std::string(" ") + property + " " + Plain(put);
  }
  return text;
}

bool BeginsWith(const ShortTrace& lines, std::size_t at, const char* word) {
  return at < lines.size() && lines[at].starts_with(word);
}

// A band with a single text becomes one line.
ShortTrace WithShortBands(const ShortTrace& lines) {
  ShortTrace shortened;
  for (std::size_t at = 0; at < lines.size(); ++at) {
    const bool isShort = BeginsWith(lines, at, "band ") && BeginsWith(lines, at + 1, "place ") &&
                         BeginsWith(lines, at + 2, "TextBox ") &&
                         !BeginsWith(lines, at + 3, "place ");
    shortened.push_back(lines[at]);
    if (isShort) {
      shortened.back() += ": " + lines[at + 2].substr(std::string("TextBox ").size());
      at += 2;
    }
  }
  return shortened;
}

// Lengths of the longest common subsequences of the traces' ends.
std::vector<std::vector<std::size_t>> CommonLengths(const ShortTrace& one,
                                                    const ShortTrace& other) {
  std::vector<std::vector<std::size_t>> common(one.size() + 1,
                                               std::vector<std::size_t>(other.size() + 1));
  for (std::size_t i = one.size(); i-- > 0;) {
    for (std::size_t j = other.size(); j-- > 0;) {
      common[i][j] = one[i] == other[j] ? common[i + 1][j + 1] + 1
                                        : std::max(common[i + 1][j], common[i][j + 1]);
    }
  }
  return common;
}

}  // namespace

ShortTrace Shortened(const Trace& trace) {
  const std::vector<Json>& lines = trace.Lines();
  ShortTrace shortened;
  for (std::size_t at = 0; at < lines.size();) {
    if (IsPut(lines[at], "CurrentX")) {
      shortened.push_back(PlaceLine(lines, at));
    } else {
      shortened.push_back(LineOf(lines[at++]));
    }
  }
  return WithShortBands(shortened);
}

std::vector<Hunk> Differences(const ShortTrace& one, const ShortTrace& other) {
  const auto common = CommonLengths(one, other);
  std::vector<Hunk> hunks;
  bool isOpen = false;
  const auto hunk = [&]() -> Hunk& {
    if (!isOpen) hunks.emplace_back();
    isOpen = true;
    return hunks.back();
  };
  for (std::size_t i = 0, j = 0; i < one.size() || j < other.size();) {
    if (i < one.size() && j < other.size() && one[i] == other[j]) {
      isOpen = false;
      ++i;
      ++j;
    } else if (j == other.size() || (i < one.size() && common[i + 1][j] >= common[i][j + 1])) {
      hunk().one.push_back(one[i++]);
    } else {
      hunk().other.push_back(other[j++]);
    }
  }
  return hunks;
}

}  // namespace td
