// Bytes on their way into a file.
#pragma once

#include <functional>
#include <string_view>

#include "files/descriptor.h"

namespace td {

// Takes the bytes of a file as they come, in parts of any size.
using ByteSink = std::function<void(std::string_view bytes)>;

// Gives a whole file to a sink: at once, or page by page.
using FileWriter = std::function<void(const ByteSink& sink)>;

// A writer of what is there already; the bytes outlive it.
[[nodiscard]] FileWriter WriterOf(std::string_view bytes);

// Writes all bytes, waiting for a slow reader. A reader that has gone and a limit of the file's
// size are failures like any other and end no process. Fails with FileError.
void WriteBytes(const Descriptor& file, std::string_view bytes);

}  // namespace td
