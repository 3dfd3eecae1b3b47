// The commands on items and variables, made for a format and not yet done. Ids that the format
// doesn't have are passed over; a command that would change nothing is empty.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "designer/model/command.h"
#include "designer/model/lengths.h"

namespace td::designer {

using ItemIds = std::vector<ItemId>;

// Adds items behind all others, or pastes them, moved by a distance: `items` may come from another
// format, whose columns this one's table may lack, and get ids of their own, which Command::items
// holds in the same order. The application's own columns travel with them.
[[nodiscard]] Command AddItems(Format& format, std::span<const Item> items);
[[nodiscard]] Command PasteItems(Format& format, std::span<const Item> items, double dx, double dy);

[[nodiscard]] Command RemoveItems(const Format& format, const ItemIds& ids);

// Distances and places in twips. A place is what is stored, not where the sheet shows it.
[[nodiscard]] Command MoveItems(const Format& format, const ItemIds& ids, double dx, double dy);
[[nodiscard]] Command PlaceItem(const Format& format, ItemId id, const Box& place);

// Fits the items from one box around them into another: an item keeps its share of it. A line keeps
// its direction, a box its size of at least 0.
[[nodiscard]] Command ResizeItems(const Format& format, const ItemIds& ids, const Box& from,
                                  const Box& to);

enum class Alignment { kLeft, kCentre, kRight, kTop, kMiddle, kBottom };
enum class Direction { kAcross, kDown };

// Aligns to the box around all of them, by what the sheet shows: items of different bands stand in
// one line on the sheet. One item alone is aligned to the sheet.
[[nodiscard]] Command AlignItems(const Format& format, const ItemIds& ids, Alignment alignment);

// Equal gaps between neighbours; the outermost two stay. Needs three.
[[nodiscard]] Command DistributeItems(const Format& format, const ItemIds& ids,
                                      Direction direction);

// Gives them the width or the height of the first.
[[nodiscard]] Command EqualiseItems(const Format& format, const ItemIds& ids, Direction direction);

// A column of several items; those whose table lacks it stay as they are. The number's form takes
// the kind that each item holds.
[[nodiscard]] Command SetOnItems(const Format& format, const ItemIds& ids, std::string_view column,
                                 const Value& value);
[[nodiscard]] Command SetNumberOnItems(const Format& format, const ItemIds& ids,
                                       std::string_view column, double number);

// Puts items into another band. They stay where the sheet shows them: the stored place takes up the
// difference of the bands.
[[nodiscard]] Command ChangeBand(const Format& format, const ItemIds& ids, ItemSite site);

enum class Order { kToFront, kForward, kBackward, kToBack };

// Drawn later is further in front. Forward and backward pass one item of the same band.
[[nodiscard]] Command ReorderItems(const Format& format, const ItemIds& ids, Order order);

// The format's own columns.
[[nodiscard]] Command SetOnFormat(const Format& format, std::string_view column,
                                  const Value& value);
[[nodiscard]] Command SetNumberOnFormat(const Format& format, std::string_view column,
                                        double number);

[[nodiscard]] Command AddVariable(const Format& format, const Variable& variable);
[[nodiscard]] Command RemoveVariableAt(const Format& format, std::size_t index);
// A new caption goes into the items that name the old one, too: they would lose their variable.
[[nodiscard]] Command SetOnVariable(const Format& format, std::size_t index,
                                    std::string_view column, const std::string& text);

}  // namespace td::designer
