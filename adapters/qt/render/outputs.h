// Documents as files, images and print jobs. `pages` are those of a PageDocument; an empty list
// fails with kInvalidCall. Paths are UTF-8.
#pragma once

#include <string>
#include <vector>

#include "page_document/drawing.h"

class QImage;
class QPrinter;
class QPageLayout;

namespace td {

// One PDF page per page, each of its own exact size, fonts embedded as subsets, text extractable.
std::string ToPdf(const std::vector<Page>& pages, const std::string& title);
// The file is replaced whole or not at all; fails with kDeviceIo.
void WritePdf(const std::vector<Page>& pages, const std::string& path, const std::string& title);

// The page on white paper. `dotsPerInch` is from 1 to 2400; an image above 400 megapixels fails
// with kOutOfMemory.
QImage RenderPage(const Page& page, double dotsPerInch);

// Writes page-001.png and so on into a folder, which is made if its parent exists. Returns the
// paths. Fails with kPathNotFound or kDeviceIo.
std::vector<std::string> WritePngPages(const std::vector<Page>& pages, const std::string& folder,
                                       double dotsPerInch);

// One self-contained file: each page an inline SVG at its true size, on a sheet of its own when
// printed; texts are texts, pictures are inside.
std::string ToHtml(const std::vector<Page>& pages, const std::string& title);
// The file is replaced whole or not at all; fails with kDeviceIo.
void WriteHtml(const std::vector<Page>& pages, const std::string& path, const std::string& title);

// The sheet of a page for a printer, in whole points, as QPrinter knows no finer ones. Its content
// lies exactly where it belongs, from the top left corner; a PDF of ToPdf has the exact sheet, too.
QPageLayout PrinterLayout(const Page& page);

// Draws the pages `first` to `last` (from 1) on a printer that no painter is active on, in the
// paper's coordinates, whatever margins the hardware has; the printer's page size is set for each
// page. Fails with kDeviceIo when the job can't be begun or a page can't be fed.
void PaintPages(const std::vector<Page>& pages, QPrinter& printer, int first, int last);

// Height of a line of text in twips, for DocumentHost::LineHeight.
double LineHeight(const TextLine& line);

}  // namespace td
