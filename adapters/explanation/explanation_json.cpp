#include <array>
#include <cstdio>
#include <string_view>

#include "explanation/explanation_text.h"
#include "explanation/words.h"
#include "text/conversions.h"
#include "text_encoding/text_repair.h"

namespace td {
namespace {

// Writes one value behind the other; commas come by themselves.
class JsonWriter {
 public:
  template <class Body>
  void Object(Body&& body) {
    Nest('{', '}', body);
  }
  template <class Items, class Body>
  void Array(std::string_view name, const Items& items, Body&& body) {
    Name(name);
    Nest('[', ']', [&] {
      for (const auto& item : items) body(item);
    });
  }

  void Put(std::string_view name, std::string_view text) {
    Name(name);
    Text(text);
  }
  void Put(std::string_view name, const std::string& text) { Put(name, std::string_view(text)); }
  void Put(std::string_view name, bool flag) { PutBare(name, flag ? "true" : "false"); }
  void Put(std::string_view name, int number) { PutBare(name, std::to_string(number)); }
  void Put(std::string_view name, double number) { PutBare(name, ToText(number)); }

  void Bare(const std::string& text) {
    Comma();
    json_ += text;
  }
  void Name(std::string_view name) {
    Text(name);
    json_ += ':';
    isFirst_ = true;
  }

  [[nodiscard]] std::string Take() { return std::move(json_); }

 private:
  template <class Body>
  void Nest(char begin, char end, Body&& body) {
    Comma();
    json_ += begin;
    isFirst_ = true;
    body();
    json_ += end;
    isFirst_ = false;
  }

  void PutBare(std::string_view name, const std::string& text) {
    Name(name);
    Bare(text);
  }

  void Comma() {
    if (!isFirst_) json_ += ',';
    isFirst_ = false;
  }

  void Text(std::string_view text) {
    Comma();
    json_ += '"';
    for (const char c : ValidUtf8(text)) {
      if (c == '"' || c == '\\') {
        json_.append({'\\', c});
      } else if (static_cast<unsigned char>(c) < 0x20) {
        std::array<char, 8> escape{};
        std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(c));
        json_ += escape.data();
      } else {
        json_ += c;
      }
    }
    json_ += '"';
  }

  std::string json_;
  bool isFirst_ = true;
};

void PutFirst(JsonWriter& json, const std::string& bill, int row, int page) {
  if (bill.empty() && row == 0 && page == 0) return;
  json.Name("first");
  json.Object([&] {
    json.Put("bill", bill);
    json.Put("row", row);
    json.Put("page", page);
  });
}

void PutReasons(JsonWriter& json, std::string_view name, const std::vector<Reason>& reasons) {
  json.Array(name, reasons, [&](const Reason& reason) {
    json.Object([&] {
      json.Put("cause", WordsOf(reason.cause).name);
      if (!reason.column.empty()) json.Put("column", reason.column);
      if (!reason.words.empty()) json.Put("words", reason.words);
      json.Put("times", reason.times);
      PutFirst(json, reason.bill, reason.row, reason.page);
    });
  });
}

void PutItem(JsonWriter& json, const ExplainedItem& item) {
  json.Object([&] {
    json.Put("band", item.band);
    json.Put("kind", item.kind);
    json.Put("caption", item.caption);
    json.Put("name", item.name);
    json.Put("variable", item.variable);
    json.Put("left", item.left);
    json.Put("top", item.top);
    json.Put("width", item.width);
    json.Put("height", item.height);
    json.Put("reached", item.reached);
    json.Put("drawn", item.drawn);
    json.Put("empty", item.empty);
    PutReasons(json, "leftOut", item.leftOut);
    PutReasons(json, "otherwise", item.otherwise);
  });
}

void PutRows(JsonWriter& json, const Explanation& explanation) {
  json.Array("bills", explanation.bills, [&](const ExplainedBill& bill) {
    json.Object([&] {
      json.Put("number", bill.number);
      json.Put("rows", bill.rows);
      json.Put("markerRows", bill.markerRows);
      json.Put("skippedRows", bill.skippedRows);
    });
  });
  json.Array("pagesWithoutRows", explanation.pagesWithoutRows,
             [&](int page) { json.Bare(std::to_string(page)); });
  json.Array("markerRows", explanation.markerRows, [&](const MarkerRows& marker) {
    json.Object([&] {
      json.Put("cause", WordsOf(marker.cause).name);
      json.Put("times", marker.times);
      PutFirst(json, marker.bill, marker.row, marker.page);
    });
  });
  json.Array("sums", explanation.sums, [&](const ExplainedSum& sum) {
    json.Object([&] {
      json.Put("variable", sum.variable);
      json.Put("columns", sum.columns);
      json.Put("rowsAdded", sum.rowsAdded);
      json.Put("rowsWithout", sum.rowsWithout);
      json.Put("missing", sum.missing);
      json.Put("amount", sum.amount);
    });
  });
}

void PutFailure(JsonWriter& json, const ExplainedFailure& failure) {
  json.Object([&] {
    json.Put("number", failure.number);
    json.Put("description", failure.description);
    if (!failure.column.empty()) json.Put("column", failure.column);
    json.Put("isShown", failure.isShown);
    json.Put("times", failure.times);
    json.Put("band", failure.place.band);
    json.Put("item", failure.place.item);
    json.Put("variable", failure.place.variable);
    PutFirst(json, failure.place.bill, failure.place.row, failure.place.page);
  });
}

}  // namespace

std::string ExplanationJson(const Explanation& explanation) {
  JsonWriter json;
  json.Object([&] {
    json.Put("isRun", explanation.isRun);
    json.Put("billType", int{explanation.billType});
    json.Put("format", explanation.format);
    json.Put("byArea", explanation.byArea);
    json.Put("onlyVariantItems", explanation.onlyVariantItems);
    json.Put("pages", explanation.pages);
    json.Put("rows", explanation.rows);
    json.Array("items", explanation.items, [&](const ExplainedItem& item) { PutItem(json, item); });
    PutRows(json, explanation);
    json.Array("failures", explanation.failures,
               [&](const ExplainedFailure& failure) { PutFailure(json, failure); });
    json.Put("lockWaits", explanation.lockWaits);
    if (!explanation.unreadItems.empty()) json.Put("unreadItems", explanation.unreadItems);
  });
  return json.Take();
}

}  // namespace td
