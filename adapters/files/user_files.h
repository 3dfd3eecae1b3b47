// Files that a user writes by hand for the component to read.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace td {

// The folder of a user's settings: $XDG_CONFIG_HOME, or ~/.config without that variable; on Windows
// %APPDATA%. Empty where there is none.
[[nodiscard]] std::filesystem::path UserConfigFolder();

// The content of a regular file; nothing where there is none, or none that could be seen. Fails
// with FileError: EINVAL for what is no regular file, EFBIG for more than `largest` bytes.
[[nodiscard]] std::optional<std::string> ReadUserFile(const std::filesystem::path& file,
                                                      std::size_t largest);

}  // namespace td
