// Formats as files: written from a database, taken into one, compared.
#pragma once

#include "arguments.h"
#include "exit_status.h"

namespace td {

ExitStatus ExportFormat(const ExportFormatArguments& arguments);
ExitStatus ImportFormat(const ImportFormatArguments& arguments);

// As diff does it: 0 for equal formats, 1 for different ones, 2 where they can't be compared.
ExitStatus DiffFormats(const DiffFormatArguments& arguments);

}  // namespace td
