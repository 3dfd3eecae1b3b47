// Documents as HTML.
#pragma once

#include <string>
#include <vector>

#include "files/written_bytes.h"
#include "page_document/drawing.h"

namespace td {

// One self-contained file, page by page: each page an inline SVG at its true size, on a sheet of
// its own when printed; texts are texts, pictures are inside. Fails with kInvalidCall without
// pages.
void StreamHtml(const std::vector<Page>& pages, const std::string& title, const ByteSink& sink);

}  // namespace td
