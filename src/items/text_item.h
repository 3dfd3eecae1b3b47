// The steps that the text items of all bands share.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "items/band.h"

namespace td {

// Current point, font and alignment of a text item.
void PlaceTextItem(Band& band);

// `caption` and `field` of the item. In the plain window a label that merely repeats the item's
// name becomes empty.
void ReadCaption(Band& band);
void ReadField(Band& band);

// Whether the item asks for an image: its FObjectFieldName is `token`, exactly.
[[nodiscard]] bool HasToken(Band& band, std::string_view token);

// Whether FAutoSize is set; Null counts as not.
[[nodiscard]] bool IsAutoSize(Band& band);

// A text at the current point, as a paragraph or with no line end of its own; `makeText` and the
// writing are one statement.
void Paragraph(Band& band, const std::function<std::string()>& makeText);
void RunningText(Band& band, const std::function<std::string()>& makeText);

// One text box at the item's place: part of a statement.
void DrawBox(Band& band, const std::string& text);

// The same as a statement of its own, in which the text is made.
void Box(Band& band, const std::function<std::string()>& makeText);

// One text where the item wants it: a paragraph at the current point if it has FAutoSize, else in
// its box.
void WriteFreeOrBoxed(Band& band, const std::function<std::string()>& makeText);

}  // namespace td
