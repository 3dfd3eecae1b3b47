#include "page_document/affine_map.h"

#include <cmath>

namespace td {
namespace {

// From the unit's corners (0, 0), (1, 0) and (0, 1).
AffineMap FromUnit(const std::array<PlanePoint, 3>& to) {
  const auto& [origin, right, below] = to;
  return {right.x - origin.x, below.x - origin.x, right.y - origin.y,
          below.y - origin.y, origin.x,           origin.y};
}

}  // namespace

AffineMap Combined(const AffineMap& outer, const AffineMap& inner) {
  const PlanePoint moved = outer({inner.dx, inner.dy});
  return {outer.xx * inner.xx + outer.xy * inner.yx,
          outer.xx * inner.xy + outer.xy * inner.yy,
          outer.yx * inner.xx + outer.yy * inner.yx,
          outer.yx * inner.xy + outer.yy * inner.yy,
          moved.x,
          moved.y};
}

std::optional<AffineMap> InverseOf(const AffineMap& map) {
  const double area = map.xx * map.yy - map.xy * map.yx;
  if (!std::isnormal(area)) return std::nullopt;
  AffineMap inverse{map.yy / area, -map.xy / area, -map.yx / area, map.xx / area, 0, 0};
  const PlanePoint origin = inverse({map.dx, map.dy});
  inverse.dx = -origin.x;
  inverse.dy = -origin.y;
  return inverse;
}

std::optional<AffineMap> MapBetween(const std::array<PlanePoint, 3>& from,
                                    const std::array<PlanePoint, 3>& to) {
  const std::optional<AffineMap> toUnit = InverseOf(FromUnit(from));
  if (!toUnit) return std::nullopt;
  return Combined(FromUnit(to), *toUnit);
}

}  // namespace td
