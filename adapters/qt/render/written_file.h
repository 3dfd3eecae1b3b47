// Files that outputs write.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "files/written_bytes.h"
#include "page_document/drawing.h"

namespace td {

// Writes a document as WriteOutput does. Fails with kDeviceIo, naming the path and the reason; what
// `write` throws goes through.
void WriteFile(const std::string& path, const FileWriter& write);

// Fails with kInvalidCall if there is no page.
void RequirePages(const std::vector<Page>& pages);

}  // namespace td
