// Moments under pictures such as "yyyy-mm-dd hh:nn".
#pragma once

#include <string>

#include "text/format_value.h"
#include "text/picture_sections.h"

namespace td {

// Whether a mark of the section stands for a part of a date, so that the picture is for dates.
[[nodiscard]] bool HasDateParts(const PictureSection& section);

// The moment of a date serial. Fails with kOverflow outside the years 100 to 9999.
[[nodiscard]] std::string FormatSerial(double serial, const PictureSection& section,
                                       FormatLanguage language);

}  // namespace td
