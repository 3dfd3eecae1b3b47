// The system's printer dialog.
#pragma once

#include <optional>
#include <string>

#include "windows/printing/document_printing.h"

namespace td {

// Shows the dialog with a printer preselected and all pages of the document, and waits for the
// answer; nothing if the user cancelled. The title is left empty. A printer that has gone leaves
// the default one preselected. Fails with kDeviceIo where there is no printer or the dialog can't
// be shown. `owner` may be null.
[[nodiscard]] std::optional<PrintChoice> AskForPrinter(const std::string& printer, int pageCount,
                                                       HWND owner);

}  // namespace td
