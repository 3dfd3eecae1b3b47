// Documents on their way to a printer.
#pragma once

#include <string>
#include <vector>

#include "page_document/page_document.h"
#include "qt/render/outputs.h"
#include "qt/system/print_dialog.h"

namespace td {

// Sends the chosen pages to the chosen printer or file. A job has one sheet: each run of pages on
// the same sheet, lying along or across it, becomes a job of its own, in the document's order,
// whose number is added to `jobs`, if there is one, as it is taken. What makes up for the printer,
// if there is anything, is for jobs alone. Fails as WritePdf and SubmitPrintJob do.
void PrintDocument(const PageDocument& document, const PrintChoice& choice,
                   std::vector<int>* jobs = nullptr, const PageCorrection& correction = {});

}  // namespace td
