// What a character is to the one who lays out texts.
#pragma once

namespace td {

// A control or format character: it shows nothing and is left out of texts.
[[nodiscard]] bool IsInvisible(char32_t character);

// Whether the glyphs of a character depend on its neighbours: marks, and the scripts whose letters
// join or change places.
[[nodiscard]] bool NeedsShaping(char32_t character);

// A blank of any width. A line that is broken ends in front of those at its end.
[[nodiscard]] bool IsBlank(char32_t character);

// A character that is drawn as a blank: a line break of any kind, or a tab.
[[nodiscard]] bool IsDrawnAsBlank(char32_t character);

}  // namespace td
