// What printers can't reach.
#pragma once

#include <optional>
#include <string>

#include "page_document/paper.h"

namespace td {

// What a printer leaves empty along the edges of an upright sheet, twips.
struct PrinterMargins {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
};

// Those of a form of the driver that has the size (IsSameSheet). Nothing if it has none, or doesn't
// say. No form is added for the question.
[[nodiscard]] std::optional<PrinterMargins> MarginsOf(const std::string& printer,
                                                      const PaperExtent& sheet);

}  // namespace td
