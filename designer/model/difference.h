// What tells two formats apart.
#pragma once

#include <string>
#include <vector>

#include "designer/model/format.h"

namespace td::designer {

enum class DifferenceKind {
  kFormatColumn,
  kItemAdded,    // only the second has it
  kItemRemoved,  // only the first has it
  kItemColumn,
  kItemOrder,  // the same items in another order
  kVariableAdded,
  kVariableRemoved,
  kVariableColumn,
};

struct Difference {
  DifferenceKind kind;
  // What an item or a variable is called: its text or its variable, and where it stands in the
  // order of its format, from 1. Empty for the format itself.
  std::string subject;
  std::string column;  // of the kinds that have one
  Value first = Null{};
  Value second = Null{};
  bool operator==(const Difference&) const = default;
};

// The differences of the columns that both know and of all items. Items of two formats belong
// together by what they show and where; what is left is added or removed.
[[nodiscard]] std::vector<Difference> DifferencesOf(const Format& first, const Format& second);

// Whether two rows mean the same in all columns that both have.
[[nodiscard]] bool AreEqual(const Row& first, const Row& second);

// One line in the language of the desktop or in English: lengths in
// millimetres, too: "item “客户” (3): FLeft: 566.93 → 850.39 (10 → 15 mm)".
[[nodiscard]] std::string InWords(const Difference& difference, bool inChinese);

// What an item is called in a list: its text, its variable, or its kind.
[[nodiscard]] std::string NameOf(const Item& item, bool inChinese);

}  // namespace td::designer
