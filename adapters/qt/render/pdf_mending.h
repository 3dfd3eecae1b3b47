// What Qt's PDF writer leaves inexact.
#pragma once

#include <QByteArray>
#include <vector>

#include "page_document/drawing.h"

namespace td {

// The whole points that hold a length in twips: the page size to give to the PDF writer.
[[nodiscard]] int PointsToHold(double twips);

// Mends a file that was written with pages of PointsToHold(width) by PointsToHold(height) points:
// - Each sheet gets its exact size; its top left corner stays where it is.
// - The characters that a reader extracts become those that were drawn. The writer names a glyph by
//   the first character that the font shows with it: a tab for a blank, a radical for 金 or 门.
// A file of another structure than Qt 6 writes is returned as it is.
[[nodiscard]] QByteArray MendPdf(const QByteArray& pdf, const std::vector<Page>& pages);

}  // namespace td
