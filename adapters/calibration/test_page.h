// The page that shows how a printer misses.
#pragma once

#include <string>
#include <vector>

#include "page_document/paper.h"
#include "platform/print_surface.h"

namespace td {

// What stands on it. Sheets without room for words have none.
struct TestPageWords {
  std::vector<std::string> lines;  // in the middle of the page
  std::string topLeft;             // beside the crosses that are measured
  std::string topRight;
  std::string bottomLeft;
};

// Draws a document of one page on the upright sheet, and closes it: crosses at the distances of
// CrossesOf, a ruler through those at the top that counts from the left edge, and one through those
// at the left that counts from the top edge, in millimetres.
void DrawTestPage(PrintSurface& surface, const PaperExtent& sheet, const TestPageWords& words);

}  // namespace td
