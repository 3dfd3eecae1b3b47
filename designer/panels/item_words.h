// What the things on a sheet are called.
#pragma once

#include <QString>
#include <string>

#include "designer/model/item_choices.h"
#include "designer/view/dropped_choice.h"

namespace td::designer {

// A text, a variable, a line …: the kind alone.
[[nodiscard]] QString NameOfKind(ChoiceKind kind);

// A choice of the palette. A variable has none: its caption is its name.
[[nodiscard]] QString NameOfChoice(const ItemChoice& choice);

// What it prints, in a sentence or two.
[[nodiscard]] QString DescriptionOf(const ItemChoice& choice);

// Where it prints: "Head, Row", "not Head"; empty if it does in every band.
[[nodiscard]] QString BandsOf(const ItemChoice& choice);

// Why it doesn't in a band; empty if it does.
[[nodiscard]] QString ReasonAgainst(const ItemChoice& choice, ItemSite site);

// An item in a list: its variable, its text, its picture's file, or its kind.
[[nodiscard]] QString NameOfItem(const Item& item);

// The variable under which a format has a computed field or a column, or nothing. Names of columns
// are compared without regard to case.
[[nodiscard]] const Variable* VariableNamed(const Format& format, const std::string& name);

// A variable as it is dropped onto the sheet: a computed field keeps its own bands.
[[nodiscard]] DroppedChoice ChoiceOfVariable(const std::string& caption, const std::string& name);

// A caption that no other variable of the format has: `wanted`, or that with a number.
[[nodiscard]] std::string FreeCaption(const Format& format, const std::string& wanted);

// How many items show the variable of that caption.
[[nodiscard]] int UsesOf(const Format& format, const std::string& caption);

}  // namespace td::designer
