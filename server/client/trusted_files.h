// Files that nobody but the user and the system's administrator can have put or changed.
//
// A folder is trusted when it belongs to the user or to root and no one else may write to it. On
// the way to it, a folder that everybody may write to is accepted only with the sticky bit, under
// which nobody can replace another's folder. All failures are ResultFailure: TD_NO_ACCESS for what
// isn't trusted, TD_FILE_NOT_FOUND for what isn't there, TD_FAILURE for the rest.
#pragma once

#include <filesystem>
#include <string>

#include "files/descriptor.h"

namespace td {

enum class MissingFolders { kFail, kCreate };

// Opens a folder after a look at each folder on the way. Missing ones are created for the user
// alone if so asked. Links on the way are resolved first, and the folders that they lead to count;
// the folder itself can't be a link.
[[nodiscard]] Descriptor OpenTrustedFolder(const std::filesystem::path& folder,
                                           MissingFolders missing);

// Opens a file for reading in a trusted folder. A link in its place isn't followed.
[[nodiscard]] Descriptor OpenTrustedFile(const std::filesystem::path& file);

// Replaces a file in a trusted folder, which is created where it is missing: whole or not at all,
// readable by the user alone. A link in its place is replaced, not followed.
void ReplaceTrustedFile(const std::filesystem::path& file, const std::string& content);

}  // namespace td
