// Bytes on their way into a file.
#pragma once

#include <functional>
#include <string_view>

namespace td {

// Takes the bytes of a file as they come, in parts of any size.
using ByteSink = std::function<void(std::string_view bytes)>;

// Gives a whole file to a sink: at once, or page by page.
using FileWriter = std::function<void(const ByteSink& sink)>;

// A writer of what is there already; the bytes outlive it.
[[nodiscard]] inline FileWriter WriterOf(std::string_view bytes) {
  return [bytes](const ByteSink& sink) { sink(bytes); };
}

}  // namespace td
