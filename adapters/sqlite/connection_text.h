// Reads the file's path out of a connection text.
#pragma once

#include <string>

namespace td {

// Understands "sqlite:PATH", where PATH is all the rest, and lists of KEY=VALUE parted by
// semicolons with Provider=SQLite and Data Source=PATH. Prefix, keys and provider are taken without
// regard to case; a value may stand in quotes or braces, the closing one doubled inside it.
// User ID, Password and Persist Security Info are accepted and have no effect.
// Fails with kDatabaseFailed on any other text. No description shows a value of the text, so that a
// password in it can't leak.
[[nodiscard]] std::string DatabasePath(const std::string& connectionText);

}  // namespace td
