#include "designer/model/difference.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <optional>
#include <utility>

#include "designer/model/known_columns.h"
#include "text/characters.h"
#include "text/conversions.h"

namespace td::designer {
namespace {

using Pairs = std::vector<std::optional<std::size_t>>;  // for each of the first, one of the second

// How unlike two items are, as far as they may be one and the same; nothing if they can't be.
std::optional<double> Distance(const Item& one, const Item& other) {
  if (one.Kind() != other.Kind()) return std::nullopt;
  const bool sameField = one.FieldName() == other.FieldName();
  const bool sameText = one.row.Text("FObjectCaption") == other.row.Text("FObjectCaption");
  const bool sameFile = one.row.Text("FPicturePath") == other.row.Text("FPicturePath");
  const Box first = one.Place();
  const Box second = other.Place();
  const bool samePlace = first.left == second.left && first.top == second.top;
  const bool sameSite = one.Site() == other.Site();
  if (!(sameField && sameText && sameFile) && !(samePlace && sameSite)) return std::nullopt;
  constexpr double kFar = 1e6;
  double distance = std::abs(first.left - second.left) + std::abs(first.top - second.top) +
                    std::abs(first.width - second.width) + std::abs(first.height - second.height);
  if (!sameSite) distance += kFar;
  if (!sameField || !sameText || !sameFile) distance += 2 * kFar;
  return distance;
}

// Equal items first, in their order; then the nearest pairs.
Pairs Paired(const ItemList& first, const ItemList& second) {
  Pairs pairs(first.Size());
  std::vector<bool> taken(second.Size(), false);
  const auto take = [&](std::size_t i, std::size_t k) {
    pairs[i] = k;
    taken[k] = true;
  };
  for (std::size_t i = 0; i < first.Size(); ++i) {
    for (std::size_t k = 0; k < second.Size(); ++k) {
      if (taken[k] || !AreEqual(first[i].row, second[k].row)) continue;
      take(i, k);
      break;
    }
  }
  struct Candidate {
    double distance;
    std::size_t first;
    std::size_t second;
  };
  std::vector<Candidate> candidates;
  for (std::size_t i = 0; i < first.Size(); ++i) {
    if (pairs[i]) continue;
    for (std::size_t k = 0; k < second.Size(); ++k) {
      if (taken[k]) continue;
      if (const auto distance = Distance(first[i], second[k])) {
        candidates.push_back({*distance, i, k});
      }
    }
  }
  std::ranges::stable_sort(candidates, {}, &Candidate::distance);
  for (const Candidate& candidate : candidates) {
    if (!pairs[candidate.first] && !taken[candidate.second]) {
      take(candidate.first, candidate.second);
    }
  }
  return pairs;
}

std::string SubjectOf(const Format& format, std::size_t index) {
  return NameOf(format.items[index], false) + " (" + std::to_string(index + 1) + ")";
}

void AddColumns(std::vector<Difference>& differences, DifferenceKind kind,
                const std::string& subject, std::span<const KnownColumn> columns, const Row& first,
                const Row& second) {
  for (const KnownColumn& column : columns) {
    if (!first.Has(column.name) || !second.Has(column.name)) continue;
    const Value& one = first.Get(column.name);
    const Value& other = second.Get(column.name);
    if (MeanTheSame(one, other)) continue;
    differences.push_back({kind, subject, std::string(column.name), one, other});
  }
}

// The items that stand behind one that they stood before: those that are in no longest run of items
// in one order.
std::vector<std::size_t> OutOfOrder(const Format& first, const Pairs& pairs) {
  std::map<ItemSite, std::vector<std::size_t>> bands;
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    if (pairs[i]) bands[first.items[i].Site()].push_back(i);
  }
  std::vector<std::size_t> moved;
  for (const auto& [site, items] : bands) {
    std::vector<std::size_t> length(items.size(), 1);
    std::vector<std::size_t> before(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
      before[i] = i;
      for (std::size_t k = 0; k < i; ++k) {
        if (*pairs[items[k]] < *pairs[items[i]] && length[k] + 1 > length[i]) {
          length[i] = length[k] + 1;
          before[i] = k;
        }
      }
    }
    std::vector<bool> stays(items.size(), false);
    auto at = static_cast<std::size_t>(std::ranges::max_element(length) - length.begin());
    while (!stays[at]) {
      stays[at] = true;
      at = before[at];
    }
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (!stays[i]) moved.push_back(items[i]);
    }
  }
  std::ranges::sort(moved);
  return moved;
}

void AddItems(std::vector<Difference>& differences, const Format& first, const Format& second) {
  const Pairs pairs = Paired(first.items, second.items);
  std::vector<bool> taken(second.items.Size(), false);
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    if (!pairs[i]) {
      differences.push_back({DifferenceKind::kItemRemoved, SubjectOf(first, i), {}});
      continue;
    }
    taken[*pairs[i]] = true;
    AddColumns(differences, DifferenceKind::kItemColumn, SubjectOf(first, i), ItemColumns(),
               first.items[i].row, second.items[*pairs[i]].row);
  }
  for (const std::size_t i : OutOfOrder(first, pairs)) {
    differences.push_back({DifferenceKind::kItemOrder, SubjectOf(first, i), {}});
  }
  for (std::size_t k = 0; k < taken.size(); ++k) {
    if (!taken[k]) differences.push_back({DifferenceKind::kItemAdded, SubjectOf(second, k), {}});
  }
}

const Variable* VariableNamed(const std::vector<Variable>& variables, const std::string& caption) {
  const auto found = std::ranges::find_if(
      variables, [&](const Variable& one) { return one.Caption() == caption; });
  return found == variables.end() ? nullptr : &*found;
}

void AddVariables(std::vector<Difference>& differences, const std::vector<Variable>& first,
                  const std::vector<Variable>& second) {
  for (const Variable& variable : first) {
    const Variable* other = VariableNamed(second, variable.Caption());
    if (other == nullptr) {
      differences.push_back({DifferenceKind::kVariableRemoved, variable.Caption(), {}});
    } else {
      AddColumns(differences, DifferenceKind::kVariableColumn, variable.Caption(),
                 VariableColumns(), variable.row, other->row);
    }
  }
  for (const Variable& variable : second) {
    if (VariableNamed(first, variable.Caption()) == nullptr) {
      differences.push_back({DifferenceKind::kVariableAdded, variable.Caption(), {}});
    }
  }
}

std::string Shortened(std::string_view text, std::size_t longest) {
  if (CharacterCount(text) <= longest) return std::string(text);
  std::string begin;
  for (std::size_t i = 0; i < longest; ++i) begin += TakeCharacter(text);
  return begin + "…";
}

std::string Shown(const Value& value) {
  if (IsNull(value)) return "Null";
  if (std::holds_alternative<Bytes>(value)) return "…";
  if (std::holds_alternative<std::string>(value)) return "“" + std::get<std::string>(value) + "”";
  return ToText(value);
}

bool IsLength(const std::string& column) {
  const KnownColumn* known = FindColumn(ItemColumns(), column);
  if (known == nullptr) known = FindColumn(FormatColumns(), column);
  return known != nullptr && known->kind == ColumnKind::kLength;
}

std::string InMillimetres(const Value& twips) {
  return ToText(std::round(MillimetresOf(ToDouble(twips)) * 100) / 100);
}

// A length in millimetres, too: nobody's ruler shows twips.
std::string ChangeOf(const Difference& difference) {
  std::string words =
      difference.column + ": " + Shown(difference.first) + " → " + Shown(difference.second);
  const bool isLength =
      IsLength(difference.column) && IsNumeric(difference.first) && IsNumeric(difference.second);
  if (!isLength) return words;
  return words + " (" + InMillimetres(difference.first) + " → " + InMillimetres(difference.second) +
         " mm)";
}

}  // namespace

bool AreEqual(const Row& first, const Row& second) {
  for (std::size_t i = 0; i < first.Size(); ++i) {
    const std::string& name = first.Names().Name(i);
    if (second.Has(name) && !MeanTheSame(first.At(i), second.Get(name))) return false;
  }
  return true;
}

std::vector<Difference> DifferencesOf(const Format& first, const Format& second) {
  std::vector<Difference> differences;
  AddColumns(differences, DifferenceKind::kFormatColumn, {}, FormatColumns(), first.row,
             second.row);
  AddItems(differences, first, second);
  AddVariables(differences, first.variables, second.variables);
  return differences;
}

std::string NameOf(const Item& item, bool inChinese) {
  constexpr std::size_t kLongest = 20;
  if (item.Kind() == ItemKind::kLine) return inChinese ? "线" : "line";
  if (item.Kind() == ItemKind::kPicture) return inChinese ? "图片" : "picture";
  std::string name = item.FieldName();
  if (name.empty()) name = item.row.Text("FObjectCaption");
  if (name.empty()) return inChinese ? "文字" : "text";
  return "“" + Shortened(name, kLongest) + "”";
}

std::string InWords(const Difference& difference, bool inChinese) {
  const std::string change = ChangeOf(difference);
  const std::string& subject = difference.subject;
  switch (difference.kind) {
    case DifferenceKind::kFormatColumn:
      return (inChinese ? "格式 " : "format: ") + change;
    case DifferenceKind::kItemAdded:
      return inChinese ? "增加项目 " + subject : "item added: " + subject;
    case DifferenceKind::kItemRemoved:
      return inChinese ? "删除项目 " + subject : "item removed: " + subject;
    case DifferenceKind::kItemColumn:
      return (inChinese ? "项目 " : "item ") + subject + ": " + change;
    case DifferenceKind::kItemOrder:
      return inChinese ? "项目次序不同 " + subject : "item in another order: " + subject;
    case DifferenceKind::kVariableAdded:
      return inChinese ? "增加变量 “" + subject + "”" : "variable added: “" + subject + "”";
    case DifferenceKind::kVariableRemoved:
      return inChinese ? "删除变量 “" + subject + "”" : "variable removed: “" + subject + "”";
    case DifferenceKind::kVariableColumn:
      return (inChinese ? "变量 “" : "variable “") + subject + "”: " + change;
  }
  return {};
}

}  // namespace td::designer
