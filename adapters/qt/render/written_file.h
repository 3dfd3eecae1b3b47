// Files that outputs write.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "page_document/drawing.h"

namespace td {

// Takes the bytes of a file as they come, in parts of any size.
using ByteSink = std::function<void(std::string_view bytes)>;

// Gives a whole file to a sink: at once, or page by page.
using FileWriter = std::function<void(const ByteSink& sink)>;

// A writer of what is there already; the bytes outlive it.
[[nodiscard]] FileWriter WriterOf(std::string_view bytes);

// Replaces a file whole or not at all. Fails with kDeviceIo; what `write` throws goes through.
void WriteFile(const std::string& path, const FileWriter& write);

// Fails with kInvalidCall if there is no page.
void RequirePages(const std::vector<Page>& pages);

}  // namespace td
