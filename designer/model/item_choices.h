// What can be dropped onto a sheet, and in which bands each works.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "designer/model/format.h"

namespace td::designer {

enum class ChoiceKind {
  kText,      // a fixed text
  kVariable,  // a column of the print data
  kLine,
  kPicture,   // a picture file
  kImage,     // a barcode or a goods picture, by a token
  kComputed,  // a field that the run computes
};

inline constexpr std::array kAllSites = {ItemSite::kHead, ItemSite::kColumnHead, ItemSite::kRow,
                                         ItemSite::kAfterRows, ItemSite::kFoot};

struct ItemChoice {
  ChoiceKind kind = ChoiceKind::kText;
  // kImage: the token for FObjectFieldName. kComputed: what FVarName of the item's variable says.
  // Empty for the other kinds.
  std::string_view name = {};
  // kImage: the column of the print data that it shows.
  std::string_view column = {};
  // Whether the run draws it there; elsewhere a field's name is that of a column of the print data,
  // and a token's image is missing.
  [[nodiscard]] bool WorksIn(ItemSite site) const;
};

// All choices but the variables, which are the bill type's: text, line, picture, then the images,
// then the fields in the order in which the run knows them.
[[nodiscard]] std::span<const ItemChoice> ItemChoices();

// What an item is: by its kind, its token, and the name that its variable stands for.
[[nodiscard]] ItemChoice ChoiceOf(const Format& format, const Item& item);

// A new item of a choice. For a computed field and a variable `caption` is the caption of the
// variable, which the caller adds to the format's variables if it isn't one of them yet; for the
// other kinds it is the fixed text.
[[nodiscard]] Item NewItemOf(const Format& format, const ItemChoice& choice,
                             const std::string& caption, ItemSite site, const Box& place);

}  // namespace td::designer
