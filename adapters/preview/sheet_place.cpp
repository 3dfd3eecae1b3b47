#include "preview/sheet_place.h"

#include <algorithm>
#include <cmath>

namespace td {

int ScrollEnd(double length, int room, int margin) {
  const int needed = static_cast<int>(std::ceil(length)) + 2 * margin;
  return length > 0 ? std::max(0, needed - room) : 0;
}

double SheetStart(double length, int room, int margin, int scrolled) {
  const double free = room - length;
  return free > 2 * margin ? free / 2 : margin - scrolled;
}

int ScrolledAfterZoom(double formerStart, double scale, int room, int margin) {
  const double middle = room / 2.0;
  return static_cast<int>(std::lround((middle - formerStart) * scale + margin - middle));
}

}  // namespace td
