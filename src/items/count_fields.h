// Fields that number pages and rows.
#pragma once

#include <array>
#include <string_view>

#include "items/band.h"

namespace td {

// Their names, which the head routines know, too.
inline constexpr std::string_view kPageNumberField = "fpageno";
inline constexpr std::string_view kTotalPageNumberField = "ftotalpageno";
inline constexpr std::array kHeadFields = {kPageNumberField, kTotalPageNumberField};

// The page within the bill: what "fpageno" shows outside the head.
void DrawPageOfBill(Band& band);

// The page within the document: what it shows in the head.
void DrawPageOfDocument(Band& band);

// The same on a head that is on the sheet already: without a label, and only where the item stands
// free; a box stays empty.
void DrawFreePageOfDocument(Band& band);

// The number of the row, counted through the whole run.
void DrawOrderId(Band& band);

}  // namespace td
