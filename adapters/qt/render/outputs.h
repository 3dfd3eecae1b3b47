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

class QImage;

namespace td {

// The pages of a document, or some of them, where they lie.
using PageRefs = std::vector<const Page*>;
[[nodiscard]] PageRefs RefsTo(const std::vector<Page>& pages);

// One PDF page per page, each of its own exact size, fonts embedded as subsets, text extractable.
// This is what printers get, too: a print job made by Qt would have sheets of whole points.
std::string ToPdf(const std::vector<Page>& pages, const std::string& title);
// The same page by page: no more of the file is held than one page needs. What `sink` throws goes
// through.
void StreamPdf(const PageRefs& pages, const std::string& title, const ByteSink& sink);
// The same for one printer, which puts things elsewhere than it is told to: each page is drawn
// through the map that makes up for it, twips from the page's top left corner; nothing: as it is.
using PageCorrection = std::function<std::optional<AffineMap>(const Page&)>;
void StreamPdf(const PageRefs& pages, const std::string& title, const ByteSink& sink,
               const PageCorrection& correction);
// A file is replaced whole or not at all, a pipe or a device receives the bytes as they come: see
// WriteOutput. Fails with kDeviceIo, with the path and the reason in words.
void WritePdf(const std::vector<Page>& pages, const std::string& path, const std::string& title);
void WritePdf(const PageRefs& pages, const std::string& path, const std::string& title);

// The page on white paper. `dotsPerInch` is from 1 to 2400; an image above 400 megapixels fails
// with kOutOfMemory.
QImage RenderPage(const Page& page, double dotsPerInch);

// Writes page-001.png and so on into a folder, which is made if its parent exists, and removes the
// pages behind the last that a longer document left there. Returns the paths. Fails with
// kPathNotFound or kDeviceIo.
std::vector<std::string> WritePngPages(const std::vector<Page>& pages, const std::string& folder,
                                       double dotsPerInch);

// One self-contained file: each page an inline SVG at its true size, on a sheet of its own when
// printed; texts are texts, pictures are inside.
std::string ToHtml(const std::vector<Page>& pages, const std::string& title);
// The same page by page.
void StreamHtml(const std::vector<Page>& pages, const std::string& title, const ByteSink& sink);
// A file is replaced whole or not at all, a pipe or a device receives the bytes as they come: see
// WriteOutput. Fails with kDeviceIo, with the path and the reason in words.
void WriteHtml(const std::vector<Page>& pages, const std::string& path, const std::string& title);

// Height of a line of text in twips, for DocumentHost::LineHeight.
double LineHeight(const TextLine& line);
// Its width in twips, for DocumentHost::LineWidth.
double LineWidth(const TextLine& line);

}  // namespace td
