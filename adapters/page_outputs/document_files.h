// Documents as files. `pages` are those of a PageDocument; an empty list fails with kInvalidCall.
// Paths are UTF-8. Each desktop draws them in its own way.
#pragma once

#include <string>
#include <vector>

#include "files/written_bytes.h"
#include "page_document/drawing.h"
#include "page_document/page_refs.h"

namespace td {

// One PDF page per page, each of its own exact size, fonts embedded as subsets, text extractable.
// A file is replaced whole or not at all, a pipe or a device receives the bytes as they come: see
// WriteOutput. Fails with kDeviceIo, with the path and the reason in words.
//
// On Windows the system's PDF printer makes it; without one the call fails with kDeviceIo.
void WritePdf(const std::vector<Page>& pages, const std::string& path, const std::string& title);
// Whether this machine can do that.
[[nodiscard]] bool CanWritePdf();

// Writes page-001.png and so on into a folder, which is made if its parent exists, and removes the
// pages behind the last that a longer document left there. Returns the paths. `dotsPerInch` is from
// 1 to 2400. Fails with kPathNotFound or kDeviceIo.
std::vector<std::string> WritePngPages(const std::vector<Page>& pages, const std::string& folder,
                                       double dotsPerInch);

// One self-contained file: each page an inline SVG at its true size, on a sheet of its own when
// printed; texts are texts, pictures are inside.
std::string ToHtml(const std::vector<Page>& pages, const std::string& title);
// The same page by page. What `sink` throws goes through.
void StreamHtml(const std::vector<Page>& pages, const std::string& title, const ByteSink& sink);
// A file is written as WritePdf writes it.
void WriteHtml(const std::vector<Page>& pages, const std::string& path, const std::string& title);

}  // namespace td
