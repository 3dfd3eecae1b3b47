// Maps of places that keep straight lines straight: moved, turned, stretched, sheared.
#pragma once

#include <array>
#include <functional>
#include <optional>

namespace td {

struct PlanePoint {
  double x = 0;
  double y = 0;
};

// x' = xx·x + xy·y + dx and y' = yx·x + yy·y + dy; moves nothing as it begins.
struct AffineMap {
  double xx = 1;
  double xy = 0;
  double yx = 0;
  double yy = 1;
  double dx = 0;
  double dy = 0;

  [[nodiscard]] PlanePoint operator()(PlanePoint place) const {
    return {xx * place.x + xy * place.y + dx, yx * place.x + yy * place.y + dy};
  }
};

// What first `inner` and then `outer` do.
[[nodiscard]] AffineMap Combined(const AffineMap& outer, const AffineMap& inner);

// Nothing for a map that leaves no area.
[[nodiscard]] std::optional<AffineMap> InverseOf(const AffineMap& map);

// The one that takes three places to three others. Nothing for places on one line.
[[nodiscard]] std::optional<AffineMap> MapBetween(const std::array<PlanePoint, 3>& from,
                                                  const std::array<PlanePoint, 3>& to);

// For a job on one printer, which puts things elsewhere than it is told to: the map through which a
// page is drawn to make up for that, twips from the page's top left corner; nothing: as it is.
struct Page;
using PageCorrection = std::function<std::optional<AffineMap>(const Page& page)>;

}  // namespace td
