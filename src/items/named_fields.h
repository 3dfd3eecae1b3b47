// The fields of DrawItems whose value is not the column of the same name.
#pragma once

#include <span>
#include <string_view>
#include <variant>

#include "items/quantity_fields.h"
#include "items/sum_fields.h"

namespace td {

struct NamedField {
  std::string_view name;
  std::variant<void (*)(Band&), SumField, QuantityColumns> drawing;
};

// The field named `name`, in any case, or nothing if it is an ordinary column in that window.
[[nodiscard]] const NamedField* FindNamedField(std::string_view name, const WindowKind& kind);

// Whether the field has its value in a band that DrawItems draws. A quantity is read from the
// current row, which behind the rows is the next one, or none.
[[nodiscard]] bool HasValueIn(const NamedField& field, ItemSite site);

// All of them, in the order in which a list shows them.
[[nodiscard]] std::span<const NamedField> NamedFields();

void DrawNamedField(Band& band, const NamedField& field);

}  // namespace td
