// Documents as files and images. `pages` are those of a PageDocument; an empty list fails with
// kInvalidCall. Paths are UTF-8.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "files/written_bytes.h"
#include "page_document/affine_map.h"
#include "page_document/drawing.h"
#include "page_document/page_refs.h"
#include "page_outputs/document_files.h"

class QImage;

namespace td {

// What WritePdf writes, and what printers get, too: a print job made by Qt would have sheets of
// whole points.
std::string ToPdf(const std::vector<Page>& pages, const std::string& title);
// The same page by page: no more of the file is held than one page needs. What `sink` throws goes
// through.
void StreamPdf(const PageRefs& pages, const std::string& title, const ByteSink& sink);
// The same for one printer, which puts things elsewhere than it is told to: each page is drawn
// through the map that makes up for it, twips from the page's top left corner; nothing: as it is.
using PageCorrection = std::function<std::optional<AffineMap>(const Page&)>;
void StreamPdf(const PageRefs& pages, const std::string& title, const ByteSink& sink,
               const PageCorrection& correction);
void WritePdf(const PageRefs& pages, const std::string& path, const std::string& title);

// The page on white paper. `dotsPerInch` is from 1 to 2400; an image above 400 megapixels fails
// with kOutOfMemory.
QImage RenderPage(const Page& page, double dotsPerInch);

// Height of a line of text in twips, for DocumentHost::LineHeight.
double LineHeight(const TextLine& line);
// Its width in twips, for DocumentHost::LineWidth.
double LineWidth(const TextLine& line);

}  // namespace td
