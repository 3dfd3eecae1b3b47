// Icons that are drawn afresh for each size, so that they are sharp on every screen.
#pragma once

#include <QIcon>
#include <functional>

class QPainter;

namespace td {

// Draws an icon on a grid of units; a line through the middle of units is sharp at the size of one
// pixel a unit.
using DrawIcon = std::function<void(QPainter& painter, QIcon::Mode mode)>;

// An icon of `units` by `units`.
[[nodiscard]] QIcon DrawnIcon(int units, DrawIcon draw);

}  // namespace td
