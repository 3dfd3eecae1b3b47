// The sheets that a printer's driver knows. It wants them by numbers of its own: a number that is
// free in one driver is some sheet in another.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "page_document/paper.h"

namespace td {

struct Form {
  std::int16_t number = 0;  // of the driver
  PaperExtent sheet;        // upright
};

// To a tenth of a millimetre, as drivers tell them.
[[nodiscard]] std::vector<Form> FormsOf(const std::string& printer);

// The driver's number for a sheet: that of the standard if the driver's sheet of this number has
// the size to a millimetre, else the first of the size. A form that no driver has is added to the
// machine's where the user may do that, under a name that tells its size. Nothing if there is none.
[[nodiscard]] std::optional<std::int16_t> FormNumber(const std::string& printer,
                                                     const PaperExtent& sheet, std::int32_t code);

// The system's unit for sheets is a tenth of a millimetre.
[[nodiscard]] int Tenths(double twips);

}  // namespace td
