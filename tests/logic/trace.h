// What a replay recorded, and questions to it.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "recording/json_values.h"

namespace td {

using recording::Json;

// Texts of page 1, of page 2, …
using Pages = std::vector<std::vector<std::string>>;

// One call of TextBox or DrawPicture: what was drawn, where, and on which page.
struct Drawn {
  int page = 0;  // 0: outside any page
  std::string text;
  double left = 0;
  double top = 0;
  double width = 0;  // 0 in a picture without size
  double height = 0;
  bool operator==(const Drawn&) const = default;
};

void PrintTo(const Drawn& drawn, std::ostream* out);

class Trace {
 public:
  explicit Trace(std::vector<Json> lines, Json tables);

  [[nodiscard]] const std::vector<Json>& Lines() const { return lines_; }
  // The lines of one kind: "enable", "barcode", "file", "raised", …
  [[nodiscard]] std::vector<Json> Lines(std::string_view kind) const;

  // The texts of all TextBox calls, stamps included.
  [[nodiscard]] std::vector<std::string> Texts() const;
  // The same by the page on which they land. Every page has its entry, also an empty one.
  [[nodiscard]] Pages TextsByPage() const;
  // TextBox calls with place and page.
  [[nodiscard]] std::vector<Drawn> Boxes() const;
  // The one TextBox call with this text; the test fails when there is none or more than one.
  [[nodiscard]] Drawn BoxOf(std::string_view text) const;
  // DrawPicture calls; the text is the picture: "file:PATH", "barcode:DATA", "goods:ID".
  [[nodiscard]] std::vector<Drawn> PicturesDrawn() const;

  // The arguments of each call of an operation: an array of arrays.
  [[nodiscard]] Json Calls(std::string_view operation) const;
  // The values written to a surface property: an array.
  [[nodiscard]] Json Puts(std::string_view property) const;
  // Texts of the message boxes, of the page text box, and statements.
  [[nodiscard]] std::vector<std::string> Messages() const;
  [[nodiscard]] std::vector<std::string> PageTexts() const;
  [[nodiscard]] std::vector<std::string> Queries() const;
  [[nodiscard]] std::vector<std::string> Executed() const;

  // Calls and events in their order, as "StartDoc", "OnNewPage", "TextBox 甲", "DrawLine", …
  // With `only`, just those whose first word is in it.
  [[nodiscard]] std::vector<std::string> Outline(const std::vector<std::string>& only = {}) const;

  // The line after a call, counted from 0; the last one without an argument.
  [[nodiscard]] Json After(std::optional<std::size_t> call = std::nullopt) const;

  // The rows that a table holds in the end, each as an object.
  [[nodiscard]] std::vector<Json> Table(const std::string& name) const;

  // The whole trace as text, for a failing test: EXPECT_…(…) << trace.Text();
  [[nodiscard]] std::string Text() const;

 private:
  // Each call with the page on which it draws.
  [[nodiscard]] std::vector<std::pair<int, const Json*>> CallsWithPages() const;
  [[nodiscard]] std::vector<Drawn> DrawnBy(std::string_view operation) const;
  [[nodiscard]] std::vector<std::string> Values(std::string_view kind, const char* key) const;

  std::vector<Json> lines_;
  Json tables_;
};

}  // namespace td
