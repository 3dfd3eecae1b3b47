// Text items that ask for an image by a special name, and the goods pictures.
#pragma once

#include <array>
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

// The picture of the goods that the current row names in a column, at the row's place.
void DrawGoodsPicture(Band& band, std::string_view column);

struct ImageToken {
  std::string_view name;    // what FObjectFieldName says, exactly
  std::string_view column;  // of the print data
  void (*draw)(Band&, std::string_view column);
  bool worksInHead;
  bool worksInOtherBands;

  [[nodiscard]] bool WorksIn(ItemSite site) const {
    return site == ItemSite::kHead ? worksInHead : worksInOtherBands;
  }
};

inline constexpr std::array kImageTokens = {
    ImageToken{kBillNoBarcode, "FBillNo", DrawBarcode, true, true},
    ImageToken{kUserBarcode, "FUserBarCode", DrawBarcode, true, false},
    ImageToken{kRandomBarcode, "FBillNoBarCode", DrawBarcode, true, true},
    ImageToken{kGoodsPicture, "FItemiD", DrawGoodsPicture, false, true},
};

// Draws the image that the item asks for. False if it asks for none that works in the band.
bool DrawImage(Band& band);

// Loads the stored picture of a goods into the window's holder, by way of a file in the folder
// "picture" beside the component; the holder is empty if there is none. The file is written anew
// each time, so that a changed picture prints at once. Errors are shown in a message box.
void LoadGoodsPicture(PrintWindow& window, std::int32_t itemId);

}  // namespace td
