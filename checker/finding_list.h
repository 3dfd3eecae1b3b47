// Findings as they are found.
#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "checker/finding.h"
#include "checker/format_rows.h"

namespace td::checker {

using Arguments = std::vector<std::string>;

// The findings on one format.
class FindingList {
 public:
  explicit FindingList(const FormatRows& format) : format_(format) {}

  void Add(FindingKind kind, Arguments arguments, std::string sql = {});
  // On an item; a kind that an item has already is not added again.
  void AddItem(std::size_t item, FindingKind kind, Arguments arguments, std::string sql = {});

  [[nodiscard]] bool Has(FindingKind kind) const;
  [[nodiscard]] bool HasItem(std::size_t item, FindingKind kind) const;

  // In the order of bands and items, those on the format first.
  [[nodiscard]] std::vector<Finding> Take();

 private:
  const FormatRows& format_;
  std::vector<Finding> findings_;
  std::set<std::pair<std::size_t, FindingKind>> known_;
};

// A length in millimetres, to a tenth.
[[nodiscard]] double ToMillimetres(double twips);
[[nodiscard]] std::string MillimetresText(double twips);
// A stored number that is meant as millimetres: as it is, to a tenth, and in whole twips.
[[nodiscard]] std::string TenthsText(double number);
[[nodiscard]] std::string TwipsText(double millimetres);

// How an item is known: its variable, its fixed text, its file.
[[nodiscard]] std::string NameOf(const StoredRow& item);

// The beginning of a long text.
[[nodiscard]] std::string Shortened(const std::string& text);

// "NULL" or the value as it is stored.
[[nodiscard]] std::string StoredText(const StoredRow& row, std::string_view column);

// A text in a statement, in quotes, which are doubled inside it.
[[nodiscard]] std::string Quoted(const std::string& text);
// update TDBill set <change> where it is this format.
[[nodiscard]] std::string UpdateFormat(const FormatRows& format, const std::string& change);
// update TDBillDetail set <change> where it is this item.
[[nodiscard]] std::string UpdateItem(const FormatRows& format, std::size_t item,
                                     const std::string& change);

}  // namespace td::checker
