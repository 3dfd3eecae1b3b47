#include "checker/finding_list.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <tuple>

#include "page_document/commands.h"
#include "text/characters.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

FoundItem FoundItemOf(const FormatRows& format, std::size_t index) {
  const StoredRow item = format.Item(index);
  FoundItem found;
  found.index = index;
  found.band = StoredText(item, "FSite");
  found.kind = StoredText(item, "FTypeID");
  found.caption = Shortened(NameOf(item));
  found.variable = item.Text("FFieldName");
  found.left = ToMillimetres(item.Number("FLeft").value_or(0));
  found.top = ToMillimetres(item.Number("FTop").value_or(0));
  return found;
}

// All digits of a number: a statement that compares fewer of them finds nothing.
std::string WholeNumber(double number) {
  constexpr std::size_t kLongest = 32;
  std::array<char, kLongest> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  return {digits.data(), end};
}

// A condition that a column has the item's value.
std::string IsAsStored(const StoredRow& item, const char* column) {
  const Value* value = item.Find(column);
  if (value == nullptr || IsNull(*value)) return std::string(column) + " is null";
  std::string text = ToText(*value);
  if (std::holds_alternative<std::string>(*value)) text = Quoted(text);
  if (const auto* number = std::get_if<double>(value)) text = WholeNumber(*number);
  return std::string(column) + "=" + text;
}

}  // namespace

void FindingList::Add(FindingKind kind, Arguments arguments, std::string sql) {
  findings_.push_back({.kind = kind,
                       .billType = format_.billType,
                       .format = format_.name,
                       .arguments = std::move(arguments),
                       .sql = std::move(sql)});
}

void FindingList::AddItem(std::size_t item, FindingKind kind, Arguments arguments,
                          std::string sql) {
  if (!known_.insert({item, kind}).second) return;
  Add(kind, std::move(arguments), std::move(sql));
  findings_.back().item = FoundItemOf(format_, item);
}

bool FindingList::Has(FindingKind kind) const {
  return std::ranges::any_of(findings_,
                             [kind](const Finding& finding) { return finding.kind == kind; });
}

bool FindingList::HasItem(std::size_t item, FindingKind kind) const {
  return known_.contains({item, kind});
}

std::vector<Finding> FindingList::Take() {
  const auto place = [](const Finding& finding) {
    return finding.item ? std::tuple(true, finding.item->band, finding.item->index)
                        : std::tuple(false, std::string(), std::size_t{0});
  };
  std::ranges::stable_sort(findings_, {}, place);
  return std::move(findings_);
}

double ToMillimetres(double twips) {
  return std::round(twips / kTwipsPerMillimetre * 10) / 10;
}

std::string MillimetresText(double twips) {
  const std::string text = ToText(ToMillimetres(twips));
  return text.find('.') == std::string::npos ? text + ".0" : text;
}

std::string TenthsText(double number) {
  return ToText(std::round(number * 10) / 10);
}

std::string TwipsText(double millimetres) {
  return ToText(std::round(millimetres * kTwipsPerMillimetre));
}

std::string NameOf(const StoredRow& item) {
  for (const char* column : {"FObjectFieldName", "FObjectCaption", "FPicturePath"}) {
    std::string name = item.Text(column);
    if (!name.empty()) return name;
  }
  return {};
}

std::string Shortened(const std::string& text) {
  constexpr std::size_t kCharacters = 40;
  if (CharacterCount(text) <= kCharacters) return text;
  std::string_view rest = text;
  std::string beginning;
  for (std::size_t i = 0; i < kCharacters; ++i) beginning += TakeCharacter(rest);
  return beginning + "…";
}

std::string StoredText(const StoredRow& row, std::string_view column) {
  const Value* value = row.Find(column);
  return value == nullptr || IsNull(*value) ? "NULL" : row.Text(column);
}

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted.append(c == '\'' ? 2 : 1, c);
  return quoted + "'";
}

std::string UpdateFormat(const FormatRows& format, const std::string& change) {
  return "update TDBill set " + change + " where FTranType=" + ToText(format.billType) +
         " and FTDBillName=" + Quoted(format.name);
}

std::string UpdateItem(const FormatRows& format, std::size_t item, const std::string& change) {
  const StoredRow row = format.Item(item);
  std::string sql = "update TDBillDetail set " + change + " where " + IsAsStored(row, "FTDBillID");
  for (const char* column : {"FSite", "FLeft", "FTop", "FObjectFieldName", "FObjectCaption"}) {
    if (row.Find(column) != nullptr) sql += " and " + IsAsStored(row, column);
  }
  return sql;
}

}  // namespace td::checker
