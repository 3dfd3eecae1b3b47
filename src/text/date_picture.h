// Moments under pictures such as "yyyy-mm-dd hh:nn".
#pragma once

#include <cstddef>
#include <string>

#include "text/format_value.h"
#include "text/picture_sections.h"

namespace td {

// Whether a part of a date, such as "yyyy", stands at mark `at` of the section.
[[nodiscard]] bool BeginsDatePart(const PictureSection& section, std::size_t at);

// The moment of a date serial. Fails with kOverflow outside the years 100 to 9999.
[[nodiscard]] std::string FormatSerial(double serial, const PictureSection& section,
                                       FormatLanguage language);

}  // namespace td
