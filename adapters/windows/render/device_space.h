// Where places in twips lie on a device.
#pragma once

#include "page_document/affine_map.h"
#include "page_document/drawing.h"
#include "windows/api/windows_api.h"

namespace td {

// Where the page's top left corner lies on a device, and how many of its units a twip has. Each
// text, line and picture is placed to the nearest unit by itself, so that no rounding adds up.
struct DevicePlace {
  double x = 0;
  double y = 0;
  double scaleX = 1;
  double scaleY = 1;
};

[[nodiscard]] int Rounded(double value);

class DeviceSpace {
 public:
  // Of a page that is drawn through a map, twips of the page. What would move nothing by half a
  // unit of the device, from one end of the page to the other, counts as upright.
  DeviceSpace(const DevicePlace& place, const Page& page, const AffineMap& drawn);

  // A space that begins at a place of this one, with so many of its twips to its own.
  [[nodiscard]] DeviceSpace Inside(double left, double top, double scaleX, double scaleY) const;

  // Columns and rows stay what they are. Only then is the place of one coordinate that of all with
  // it: X and Y are for this alone.
  [[nodiscard]] bool IsUpright() const { return isUpright_; }
  [[nodiscard]] double X(double x) const { return map_.dx + x * map_.xx; }
  [[nodiscard]] double Y(double y) const { return map_.dy + y * map_.yy; }

  [[nodiscard]] PlanePoint At(double x, double y) const { return map_({x, y}); }
  [[nodiscard]] POINT Nearest(double x, double y) const;

  // Units of the device to a twip, along what is level here and along what is upright.
  [[nodiscard]] double StretchX() const;
  [[nodiscard]] double StretchY() const;

  // Of letters, on the paper: tenths of a degree against the clock, as fonts count.
  [[nodiscard]] int Turn() const { return turn_; }

 private:
  DeviceSpace(const AffineMap& map, bool isUpright, int turn)
      : map_(map), isUpright_(isUpright), turn_(turn) {}

  AffineMap map_;
  bool isUpright_ = true;
  int turn_ = 0;
};

}  // namespace td
