// Files that outputs write.
#pragma once

#include <string>
#include <vector>

#include "page_document/drawing.h"

namespace td {

// Replaces a file whole or not at all. Fails with kDeviceIo.
void WriteWholeFile(const std::string& path, const std::string& bytes);

// Fails with kInvalidCall if there is no page.
void RequirePages(const std::vector<Page>& pages);

}  // namespace td
