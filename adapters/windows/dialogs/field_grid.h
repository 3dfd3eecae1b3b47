// The labelled fields of a dialog, one below the other.
#pragma once

#include <span>
#include <string_view>

#include "windows/controls/choice_list.h"

namespace td {

// One field and what stands beside it; a list has no more than its label.
struct FieldRow {
  HWND label = nullptr;
  HWND field = nullptr;
  ChoiceList* list = nullptr;
  HWND unit = nullptr;
  HWND note = nullptr;
  HWND hint = nullptr;
};

// Pixels.
struct GridMeasures {
  int fieldHeight = 0;
  int room = 0;     // between the parts of a row
  int rowRoom = 0;  // between the rows
};

// The least width of the fields in a font.
[[nodiscard]] int GridWidth(std::span<const FieldRow> rows, HFONT font,
                            const GridMeasures& measures);

// Places the rows from a corner on. Labels end, and fields, units and hints begin, on common lines.
// Returns where the last row ends.
int PlaceGrid(std::span<const FieldRow> rows, HFONT font, const GridMeasures& measures,
              POINT corner, int width);

}  // namespace td
