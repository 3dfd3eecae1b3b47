// Settings that people write by hand for the component to read.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace td {

// The folder of a user's settings: $XDG_CONFIG_HOME, or ~/.config without that variable; on Windows
// %APPDATA%. Empty where there is none. A variable that holds no absolute path is as if it were not
// set.
[[nodiscard]] std::filesystem::path UserConfigFolder();

// Those of the settings for all users, the most important one first: those of $XDG_CONFIG_DIRS, or
// /etc/xdg without that variable; on Windows %PROGRAMDATA%.
[[nodiscard]] std::vector<std::filesystem::path> MachineConfigFolders();

// The content of a regular file; nothing where there is none, or none that could be seen. Fails
// with FileError: EINVAL for what is no regular file, EFBIG for more than `largest` bytes.
[[nodiscard]] std::optional<std::string> ReadUserFile(const std::filesystem::path& file,
                                                      std::size_t largest);

}  // namespace td
