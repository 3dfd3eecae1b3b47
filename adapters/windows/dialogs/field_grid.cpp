#include "windows/dialogs/field_grid.h"

#include <algorithm>

#include "dialogs/dialog_contents.h"
#include "dialogs/field_texts.h"
#include "windows/api/wide_text.h"
#include "windows/controls/text_fitting.h"

namespace td {
namespace {

// The widths of what stands in the columns.
struct Columns {
  int label = 0;
  int number = 0;
  int list = 0;
  int unit = 0;
  int note = 0;
  int hint = 0;

  [[nodiscard]] int Beside(int room) const { return unit + note + hint + 3 * room; }
};

int CharacterWidth(HFONT font) {
  const Selected selected(ScreenDevice(), font);
  TEXTMETRICW metrics{};
  GetTextMetricsW(ScreenDevice(), &metrics);
  return metrics.tmAveCharWidth;
}

Columns Measure(std::span<const FieldRow> rows, HFONT font, int fieldHeight) {
  constexpr int kUsualNameLength = 24;  // half-width characters
  Columns columns;
  const auto widen = [&](int& column, HWND label) {
    if (label != nullptr) column = std::max<int>(column, TextSize(font, TextOf(label)).cx);
  };
  for (const FieldRow& row : rows) {
    widen(columns.label, row.label);
    widen(columns.unit, row.unit);
    widen(columns.hint, row.hint);
    if (row.note == nullptr) continue;
    columns.note = TextSize(font, ToWide(WidestNoteOfLength())).cx;
  }
  columns.number = kRoomForNumber * CharacterWidth(font);
  columns.list = kUsualNameLength * CharacterWidth(font) + fieldHeight;
  return columns;
}

bool HasNumbers(std::span<const FieldRow> rows) {
  return std::ranges::any_of(rows, [](const FieldRow& row) { return row.list == nullptr; });
}

int FieldsWidth(std::span<const FieldRow> rows, const Columns& columns, int room) {
  const int ofNumbers = HasNumbers(rows) ? columns.number + columns.Beside(room) : 0;
  return std::max(columns.list, ofNumbers);
}

}  // namespace

int GridWidth(std::span<const FieldRow> rows, HFONT font, const GridMeasures& measures) {
  const Columns columns = Measure(rows, font, measures.fieldHeight);
  return columns.label + measures.room + FieldsWidth(rows, columns, measures.room);
}

int PlaceGrid(std::span<const FieldRow> rows, HFONT font, const GridMeasures& measures,
              POINT corner, int width) {
  const Columns columns = Measure(rows, font, measures.fieldHeight);
  const int room = measures.room;
  const int height = measures.fieldHeight;
  const int fieldLeft = corner.x + columns.label + room;
  const int fieldWidth = width - columns.label - room;
  int top = corner.y;
  for (const FieldRow& row : rows) {
    MoveWindow(row.label, corner.x, top, columns.label, height, TRUE);
    if (row.list != nullptr) {
      row.list->Place({fieldLeft, top, fieldLeft + fieldWidth, top + height}, room);
    } else {
      int left = fieldLeft;
      const auto place = [&](HWND part, int partWidth) {
        if (part != nullptr) MoveWindow(part, left, top, partWidth, height, TRUE);
        left += partWidth + room;
      };
      place(row.field, fieldWidth - columns.Beside(room));
      place(row.unit, columns.unit);
      place(row.note, columns.note);
      place(row.hint, columns.hint);
    }
    top += height + measures.rowRoom;
  }
  return top - measures.rowRoom;
}

}  // namespace td
