// Files that outputs write.
#pragma once

#include <cstddef>
#include <string>

#include "files/written_bytes.h"

namespace td {

// Writes a document as WriteOutput does. Fails with kDeviceIo, naming the path and the reason; what
// `write` throws goes through.
void WriteFile(const std::string& path, const FileWriter& write);

// Fails with kInvalidCall if there is no page.
void RequirePages(std::size_t count);

}  // namespace td
