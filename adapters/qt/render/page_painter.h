// Draws pages with QPainter, for the screen and for images.
#pragma once

#include "page_document/drawing.h"

class QPainter;

namespace td {

// Draws a page. The painter's coordinates are twips from the page's top left corner: an output
// scales it before the call. The painter's state is the same afterwards. Needs a QGuiApplication,
// as do all functions of this folder.
void DrawPage(QPainter& painter, const Page& page);

}  // namespace td
