// A format as a file that people can read, and that other databases can take up.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "designer/model/format.h"

namespace td::designer {

inline constexpr int kFormatFileVersion = 1;

// The bytes of a picture file that an item names, or nothing if it can't be read.
using ReadPicture = std::function<std::optional<Bytes>(const std::string& path)>;

struct FilePicture {
  std::string path;  // as FPicturePath says it
  Bytes bytes;
};

struct FormatFile {
  Format format;
  std::vector<FilePicture> pictures;
};

// The text of a file: UTF-8, one item a block, its columns in the table's order. Of the variables
// those that the items name. Pictures go in where `readPicture` is given and finds them. The
// application's own columns stay out: another database has others.
[[nodiscard]] std::string WriteFormatFile(const Format& format,
                                          const ReadPicture& readPicture = {});

// Fails with Failure, in words that say what is wrong where, for a text that is no such file, has
// another version, or lacks what a format needs.
[[nodiscard]] FormatFile ReadFormatFile(std::string_view text);

}  // namespace td::designer
