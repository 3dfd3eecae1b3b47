// Documents on their way to a printer.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "page_document/affine_map.h"
#include "page_document/drawing.h"
#include "windows/printing/driver_settings.h"

namespace td {

// Where a document goes and how. Without a dialog only the printer's name and the title are set.
struct PrintChoice {
  std::string printer;
  std::string title;  // of the jobs
  std::string file;   // not empty: the driver writes there; all pages are one job
  // Pages to print, each from 1, in their order; nothing: all.
  std::optional<std::vector<int>> pages;
  JobOptions options;
  PageCorrection correction;  // what makes up for the printer, if anything does
};

// Takes what a document goes on without.
using Complain = std::function<void(const std::string& words)>;

// Sends the chosen pages to the chosen printer. A job has one sheet: each run of pages on the same
// sheet, lying along or across it, becomes a job of its own, in the document's order, whose number
// is added to `jobs` as it is taken. The hardware's margins neither move nor scale a page. A driver
// that takes another sheet than the page's is complained of. Returns false when the user has
// cancelled it in a dialog of the driver's own.
//
// Fails with kDeviceIo when the printer has gone or refuses the job: never with kInvalidProperty,
// which a run takes for a choice of printer that it can do without.
bool PrintDocument(const std::vector<Page>& pages, const PrintChoice& choice,
                   std::vector<int>& jobs, const Complain& complain);

}  // namespace td
