// Fields that show a quantity in two units at once, as "3箱+5瓶".
#pragma once

#include <string_view>

#include "items/band.h"

namespace td {

// Columns of the print data that make up one such quantity. The columns that are tested cross over
// between the fields; forms in use rely on that.
struct QuantityColumns {
  std::string_view main;
  std::string_view testedForNull;  // empty: no test
  std::string_view testedForZero;
  std::string_view small;
  std::string_view mainUnit;
  std::string_view smallUnit;
  std::string_view fallback;
};

// Draws nothing where the column tested for Null is Null. A quantity that is not composed shows
// what the band composed last.
void DrawQuantity(Band& band, const QuantityColumns& columns);

}  // namespace td
