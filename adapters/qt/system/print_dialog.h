// The system's printer dialog.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

class QWidget;

namespace td {

// Where a document goes and how. Without a dialog only the printer's name is set.
struct PrintChoice {
  std::string printer;
  std::string pdfFile;  // not empty: the user wants a file in the place of a print
  // Pages to print, each from 1, in their order; nothing: all.
  std::optional<std::vector<int>> pages;
  // Options of the printing system: copies, sides and what else the dialog offers.
  std::vector<std::pair<std::string, std::string>> options;
};

// Shows the dialog with a printer preselected and waits for the answer; nothing if the user
// cancelled. Where there is no printer, `printer` is empty and a file is all that can be chosen.
// Needs a window system. `window` may be null.
[[nodiscard]] std::optional<PrintChoice> AskForPrinter(const std::string& printer, int pageCount,
                                                       QWidget* window);

}  // namespace td
