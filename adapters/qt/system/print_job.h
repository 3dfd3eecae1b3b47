// Jobs for the printing system.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "files/written_bytes.h"
#include "page_document/paper.h"

namespace td {

// One document for one printer.
struct PrintJob {
  std::string printer;
  std::string title;
  FileWriter pdf;     // hands over the document; what it throws goes through, and there is no job
  PaperExtent sheet;  // its width runs across the printer's way; pages may lie on it turned
  // More options of the printing system, such as ("copies", "2"). Those that would scale or move
  // the pages, or choose another sheet, have no effect.
  std::vector<std::pair<std::string, std::string>> options;
};

// Hands a job to the printing system and returns its number there. The sheet is asked for by its
// name if the printer has it (SheetName), otherwise by its exact size in points. The hardware's
// margins neither move nor scale a page. Nobody is asked for a password. Fails with kDeviceIo when
// the printer has gone or refuses the job: never with kInvalidProperty, which a run takes for a
// choice of printer that it can do without.
int SubmitPrintJob(const PrintJob& job);

}  // namespace td
