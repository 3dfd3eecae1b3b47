// What people write of sheets and of distances on them.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "calibration/calibration.h"
#include "explanation/language.h"

namespace td {

// The sheet of a name that windows offer, in either language and without regard to case, or of two
// sides in millimetres, upright: "A4", "241x140", "182 × 257". Nothing for anything else.
[[nodiscard]] std::optional<PaperExtent> SheetNamed(const std::string& text);

// Two distances in millimetres, "22.3,20.1" or with a blank between them: the first from a side,
// the second from the top or the bottom. Nothing for anything else.
[[nodiscard]] std::optional<Distances> ParseDistances(const std::string& text);

// "210 × 297 mm"
[[nodiscard]] std::string SheetText(const Distances& sheet);

// "210x297", as SheetNamed reads it.
[[nodiscard]] std::string SheetOption(const Distances& sheet);

// "22.3", without zeros at the end.
[[nodiscard]] std::string NumberText(double number);

// Which edges a cross is measured from.
enum class Corner { kTopLeft, kTopRight, kBottomLeft };

// "the top left cross, from the left edge and from the top edge"
[[nodiscard]] std::string_view CornerText(Corner corner, Language language);

// Asks until there is an answer that can be read. Nothing for an empty line and at the input's end.
[[nodiscard]] std::optional<Distances> AskForDistances(std::istream& answers,
                                                       std::ostream& questions, Corner corner,
                                                       Language language);

}  // namespace td
