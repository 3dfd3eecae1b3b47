// What dialogs say of their fields.
#pragma once

#include <string>
#include <string_view>

#include "dialogs/dialog_contents.h"

namespace td {

// What a length in twips, as typed, is in millimetres as it will be understood: "≈ 10.0 毫米".
// Empty for an empty text, and for lengths beyond any paper.
[[nodiscard]] std::string NoteOfLength(std::string_view twips);
// The widest note that comes.
[[nodiscard]] std::string WidestNoteOfLength();

// How a screen reader calls a field: its label without the colon, and its unit.
[[nodiscard]] std::string DescriptionOf(const ListField& field);
[[nodiscard]] std::string DescriptionOf(const NumberField& field);

// Whether an entry of a list is nothing but hyphens. It is drawn as a line, and can be chosen all
// the same.
[[nodiscard]] bool IsSeparator(std::string_view entry);

}  // namespace td
