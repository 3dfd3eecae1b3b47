// Documents as files and images. `pages` are those of a PageDocument; an empty list fails with
// kInvalidCall. Paths are UTF-8.
#pragma once

#include <string>
#include <vector>

#include "files/written_bytes.h"
#include "page_document/affine_map.h"
#include "page_document/drawing.h"
#include "page_document/page_refs.h"
#include "page_outputs/document_files.h"
#include "page_outputs/text_measures.h"

class QImage;

namespace td {

// What WritePdf writes, and what printers get, too: a print job made by Qt would have sheets of
// whole points.
std::string ToPdf(const std::vector<Page>& pages, const std::string& title);
// The same page by page: no more of the file is held than one page needs. What `sink` throws goes
// through.
void StreamPdf(const PageRefs& pages, const std::string& title, const ByteSink& sink);
// The same for one printer.
void StreamPdf(const PageRefs& pages, const std::string& title, const ByteSink& sink,
               const PageCorrection& correction);
void WritePdf(const PageRefs& pages, const std::string& path, const std::string& title);

// The page on white paper. `dotsPerInch` is from 1 to 2400; an image above 400 megapixels fails
// with kOutOfMemory.
QImage RenderPage(const Page& page, double dotsPerInch);

}  // namespace td
