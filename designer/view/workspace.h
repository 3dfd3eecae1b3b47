// What every panel of the designer works on.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "designer/model/format_document.h"
#include "designer/view/dropped_choice.h"
#include "designer/view/findings.h"
#include "designer/view/selection.h"
#include "memory_rows/memory_rows.h"

namespace td::designer {

// One for each window; all of it lives as long as the window's panels. Opening another format puts
// it into the same document, which tells its listeners that everything has changed.
struct Workspace {
  FormatDocument document{NewFormat(0, {})};
  Selection selection;

  // The rows that were asked for with the window, or nothing: their columns can become variables,
  // and the first row gives live examples.
  std::shared_ptr<const MemoryRows> data;
  // The machine's printers by name.
  std::vector<std::string> printers;

  // What the checker found in the document when it was asked last; the sheet marks its items.
  Findings findings;
  // Asks the checker about a format, saved or not; without it nothing is found.
  std::function<std::vector<FormatFinding>(const Format& format)> check;

  // Puts a new item into the middle of what is seen of the sheet, and selects it.
  std::function<void(const DroppedChoice& choice)> place;
  // Scrolls the sheet to an item, and selects it.
  std::function<void(ItemId item)> goTo;
};

}  // namespace td::designer
