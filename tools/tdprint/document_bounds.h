// How much fits into one document, told before a print rather than by an overflow in it.
#pragma once

#include <cstdint>

#include "platform/database.h"

namespace td {

// Counts the rows on a clone. Fails with kOverflow, in words, when they are more than a document
// can number; those that blank rows pass over need no number.
void RequireFewRows(Recordset& rows, std::int16_t blankRows);

}  // namespace td
