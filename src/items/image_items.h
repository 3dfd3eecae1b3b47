// Text items that ask for an image by a special name.
#pragma once

#include <string_view>

#include "items/band.h"

namespace td {

inline constexpr std::string_view kBillNoBarcode = "<单号条码图>";
inline constexpr std::string_view kRandomBarcode = "<随机条码图>";
inline constexpr std::string_view kUserBarcode = "<用户条码图>";
inline constexpr std::string_view kGoodsPicture = "<商品图片>";

// A barcode of a column of the print data, at the same spot of the page for every row. A missing or
// Null value draws the code of the last one.
void DrawBarcode(Band& band, std::string_view column);

// The picture of the current row's goods, at the row's place.
void DrawGoodsPicture(Band& band);

}  // namespace td
