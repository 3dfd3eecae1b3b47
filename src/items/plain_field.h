// Items that show a column of the print data.
#pragma once

#include <string>

#include "items/band.h"

namespace td {

// A number with a picture follows the row cursor; everything else follows it only in the row band
// and is read from the parked clone in the other bands.
void DrawPlainField(Band& band);

// The picture under which `value` prints: the picture of a price grows until it shows all the
// decimals that the price has.
[[nodiscard]] std::string PriceRulePicture(const Value& value, const std::string& field,
                                           const std::string& picture);

}  // namespace td
