// The documents that a printer is calibrated with, sent to it or written to a file.
#pragma once

#include "arguments.h"
#include "explanation/language.h"
#include "page_document/paper.h"

namespace td {

// Both fail with Failure, in words.

// The crosses and rulers; with the calibration in force if that is to be checked.
void SendTestPage(const CalibrateArguments& arguments, const PaperExtent& sheet, Language language);

// The frames of a format's values, with the calibration in force.
void SendForm(const CalibrateArguments& arguments);

}  // namespace td
