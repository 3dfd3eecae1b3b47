#include "windows/render/device_space.h"

#include <cmath>
#include <numbers>

namespace td {

int Rounded(double value) {
  return static_cast<int>(std::lround(value));
}

DeviceSpace::DeviceSpace(const DevicePlace& place, const Page& page, const AffineMap& drawn)
    : map_(Combined({place.scaleX, 0, 0, place.scaleY, place.x, place.y}, drawn)) {
  constexpr double kUnseen = 0.5;
  constexpr double kTenths = 1800 / std::numbers::pi;
  isUpright_ =
      std::abs(map_.xy) * page.height < kUnseen && std::abs(map_.yx) * page.width < kUnseen;
  if (isUpright_) {
    map_.xy = map_.yx = 0;
  } else {
    // Letters can't be skewed: half of it is on either side.
    const double across = std::atan2(drawn.yx, drawn.xx);
    const double along = std::atan2(-drawn.xy, drawn.yy);
    turn_ = Rounded(-(across + along) / 2 * kTenths);
  }
}

DeviceSpace DeviceSpace::Inside(double left, double top, double scaleX, double scaleY) const {
  return {Combined(map_, {scaleX, 0, 0, scaleY, left, top}), isUpright_, turn_};
}

POINT DeviceSpace::Nearest(double x, double y) const {
  const PlanePoint place = At(x, y);
  return {Rounded(place.x), Rounded(place.y)};
}

double DeviceSpace::StretchX() const {
  return std::hypot(map_.xx, map_.yx);
}

double DeviceSpace::StretchY() const {
  return std::hypot(map_.xy, map_.yy);
}

}  // namespace td
