// What is left empty along the edges of a sheet.
#pragma once

namespace td {

// Twips.
struct SheetMargins {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
};

}  // namespace td
