#include "trace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <ostream>
#include <sstream>

#include "recording/replay.h"

namespace td {

void PrintTo(const Drawn& drawn, std::ostream* out) {
  *out << "page " << drawn.page << ": " << drawn.text << " at " << drawn.left << ", " << drawn.top
       << " size " << drawn.width << " x " << drawn.height;
}

Trace::Trace(std::vector<Json> lines, Json tables)
    : lines_(std::move(lines)), tables_(std::move(tables)) {}

std::vector<Json> Trace::Lines(std::string_view kind) const {
  std::vector<Json> lines;
  std::copy_if(lines_.begin(), lines_.end(), std::back_inserter(lines),
               [&](const Json& line) { return line["e"] == kind; });
  return lines;
}

std::vector<std::pair<int, const Json*>> Trace::CallsWithPages() const {
  std::vector<std::pair<int, const Json*>> calls;
  int page = 0;
  int overlay = 0;
  for (const Json& line : lines_) {
    if (line["e"] == "event" && line["n"] == "OnNewPage") {
      ++page;
    }
    if (line["e"] != "call") {
      continue;
    }
    const std::string operation = line["f"];
    if (operation == "StartDoc" || operation == "ClearDoc") {
      page = 0;
    } else if (operation == "StartOverlay") {
      overlay = line["a"][0];
    } else if (operation == "EndOverlay") {
      overlay = 0;
    }
    calls.emplace_back(overlay > 0 ? overlay : page, &line);
  }
  return calls;
}

std::vector<Drawn> Trace::DrawnBy(std::string_view operation) const {
  std::vector<Drawn> drawn;
  for (const auto& [page, line] : CallsWithPages()) {
    if ((*line)["f"] != operation) {
      continue;
    }
    const Json& a = (*line)["a"];
    const bool hasSize = a.size() > 3;
    drawn.push_back({page, a[0].is_null() ? "" : a[0].get<std::string>(), a[1], a[2],
                     hasSize ? a[3].get<double>() : 0, hasSize ? a[4].get<double>() : 0});
  }
  return drawn;
}

std::vector<Drawn> Trace::Boxes() const {
  return DrawnBy("TextBox");
}
std::vector<Drawn> Trace::PicturesDrawn() const {
  return DrawnBy("DrawPicture");
}

std::vector<std::string> Trace::Texts() const {
  std::vector<std::string> texts;
  for (const Drawn& box : Boxes()) {
    texts.push_back(box.text);
  }
  return texts;
}

Pages Trace::TextsByPage() const {
  Pages pages;
  for (const auto& [page, line] : CallsWithPages()) {
    pages.resize(std::max(pages.size(), static_cast<std::size_t>(page)));
  }
  for (const Drawn& box : Boxes()) {
    if (box.page > 0) {
      pages[static_cast<std::size_t>(box.page) - 1].push_back(box.text);
    }
  }
  return pages;
}

Drawn Trace::BoxOf(std::string_view text) const {
  const std::vector<Drawn> boxes = Boxes();
  const auto isIt = [&](const Drawn& box) { return box.text == text; };
  EXPECT_EQ(std::count_if(boxes.begin(), boxes.end(), isIt), 1) << text << "\n" << Text();
  const auto found = std::find_if(boxes.begin(), boxes.end(), isIt);
  return found == boxes.end() ? Drawn{} : *found;
}

Json Trace::Calls(std::string_view operation) const {
  Json calls = Json::array();
  for (const Json& line : Lines("call")) {
    if (line["f"] == operation) {
      calls.push_back(line["a"]);
    }
  }
  return calls;
}

Json Trace::Puts(std::string_view property) const {
  Json values = Json::array();
  for (const Json& line : Lines("put")) {
    if (line["p"] == property) {
      values.push_back(line["v"]);
    }
  }
  return values;
}

std::vector<std::string> Trace::Values(std::string_view kind, const char* key) const {
  std::vector<std::string> values;
  for (const Json& line : Lines(kind)) {
    values.push_back(line[key]);
  }
  return values;
}

std::vector<std::string> Trace::Messages() const {
  return Values("box", "text");
}
std::vector<std::string> Trace::PageTexts() const {
  return Values("pagetext", "v");
}
std::vector<std::string> Trace::Queries() const {
  return Values("query", "sql");
}
std::vector<std::string> Trace::Executed() const {
  return Values("execute", "sql");
}

std::vector<std::string> Trace::Outline(const std::vector<std::string>& only) const {
  std::vector<std::string> outline;
  for (const Json& line : lines_) {
    std::string word;
    if (line["e"] == "event") {
      word = line["n"];
    } else if (line["e"] == "call") {
      word = line["f"];
    }
    if (word.empty() ||
        (!only.empty() && std::find(only.begin(), only.end(), word) == only.end())) {
      continue;
    }
    const bool hasText = line["e"] == "call" && !line["a"].empty() && line["a"][0].is_string();
    outline.push_back(hasText ? word + " " + line["a"][0].get<std::string>() : word);
  }
  return outline;
}

Json Trace::After(std::optional<std::size_t> call) const {
  const std::vector<Json> lines = Lines("after");
  const std::size_t index = call.value_or(lines.size() - 1);
  EXPECT_LT(index, lines.size()) << Text();
  return index < lines.size() ? lines[index] : Json::object();
}

std::vector<Json> Trace::Table(const std::string& name) const {
  std::vector<Json> rows;
  const Json& table = tables_.at(name);
  for (const Json& values : table["rows"]) {
    Json row = Json::object();
    for (std::size_t i = 0; i < values.size(); ++i) {
      row[table["columns"][i].get<std::string>()] = values[i];
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

std::string Trace::Text() const {
  std::ostringstream text;
  for (const Json& line : lines_) {
    text << recording::LineText(line) << '\n';
  }
  return text.str();
}

}  // namespace td
