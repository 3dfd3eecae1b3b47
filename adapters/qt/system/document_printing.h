// Documents on their way to a printer.
#pragma once

#include <string>
#include <vector>

#include "page_document/page_document.h"
#include "qt/system/print_dialog.h"

namespace td {

// Sends the chosen pages to the chosen printer or file. Pages on different sheets become jobs of
// their own, in the document's order, whose numbers are added to `jobs`, if there is one, as each
// is taken. Fails as WritePdf and SubmitPrintJob do.
void PrintDocument(PageDocument& document, const PrintChoice& choice,
                   std::vector<int>* jobs = nullptr);

// How the sheets of a page are fed: a page that is wide because the document's paper lies in
// landscape is fed upright. Twips.
[[nodiscard]] PaperExtent SheetOf(const Page& page, PageDocument& document);

}  // namespace td
