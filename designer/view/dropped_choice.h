// A choice of the palette on its way to the sheet.
#pragma once

#include <QMimeData>
#include <memory>
#include <optional>
#include <string>

#include "designer/model/format_document.h"
#include "designer/model/item_choices.h"

namespace td::designer {

struct DroppedChoice {
  ItemChoice choice;
  // Of a variable or computed field the caption under which the format knows it; of the other kinds
  // the fixed text.
  std::string caption;
  // kVariable: the column of the print data, for a caption that is no variable yet.
  std::string column = {};
  // Nothing: the band that lies under the mouse.
  std::optional<ItemSite> site = std::nullopt;
};

[[nodiscard]] std::unique_ptr<QMimeData> MimeOf(const DroppedChoice& choice);
// Nothing if the data is something else.
[[nodiscard]] std::optional<DroppedChoice> ChoiceIn(const QMimeData& data);

// The place that a new item of a choice gets: its corner is given, its size is that of its kind.
[[nodiscard]] Box UsualPlace(const ItemChoice& choice, Point corner);

// Adds an item of a choice at a stored place, and the variable that it needs if the format has it
// not yet, as one step. Returns the item.
ItemId AddChoice(FormatDocument& document, const DroppedChoice& choice, ItemSite site,
                 const Box& place);

}  // namespace td::designer
