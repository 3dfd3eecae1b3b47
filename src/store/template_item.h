// What the codes of an item's columns mean.
#pragma once

#include <cstdint>

namespace td {

// `FSite`: the band of the page that the item belongs to.
enum class ItemSite : std::int16_t {
  kHead = 1,
  kColumnHead = 2,
  kRow = 3,
  kAfterRows = 4,
  kFoot = 5,
};

// `FTypeID`. Any other number draws nothing.
enum class ItemKind { kText = 0, kLine = 1, kPicture = 2 };

// `FAlignMent`. Any other number aligns right.
enum class ItemAlignment { kLeft = 0, kCentre = 2 };

}  // namespace td
