// The sheets of a printer that is reached already: asking for it anew costs two requests.
#pragma once

#include <optional>
#include <string>

#include "page_document/paper.h"
#include "qt/system/cups_handles.h"
#include "qt/system/printers.h"

namespace td {

// As printers.h has them.
[[nodiscard]] std::optional<PaperExtent> OwnSheet(const CupsPrinter& queue);
[[nodiscard]] std::optional<SheetMargins> MarginsOf(const CupsPrinter& queue,
                                                    const PaperExtent& extent);
[[nodiscard]] std::optional<std::string> SheetName(const CupsPrinter& queue,
                                                   const PaperExtent& extent);

// Whether the printer takes sheets of any size.
[[nodiscard]] bool TakesAnySize(const CupsPrinter& queue);

}  // namespace td
