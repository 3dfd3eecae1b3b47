// Text items that ask for an image by a special name, and the goods pictures.
#pragma once

#include <cstdint>
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

// Loads the stored picture of a goods into the window's holder, by way of a file in the folder
// "picture" beside the component; the holder is empty if there is none. The file is written anew
// each time, so that a changed picture prints at once. Errors are shown in a message box.
void LoadGoodsPicture(PrintWindow& window, std::int32_t itemId);

}  // namespace td
