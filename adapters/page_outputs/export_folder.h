// The folder of the export file, and the writing of a file in it.
#pragma once

#include <string>

#include "files/written_bytes.h"

namespace td {

// Where the export file goes: $QBTDPRINTER_STATE_DIR, else the folder qbtdprinter in
// $XDG_STATE_HOME, else in ~/.local/state; on Windows QbTdPrinter in %LOCALAPPDATA% in the place of
// both. A variable that is no absolute path is passed over. Empty when there is no such folder.
[[nodiscard]] std::string DefaultStateFolder();

// Writes a file into a folder, both for the user alone; on Windows the folder's own rights say for
// whom. The folder is made if it is missing, its parents too. An old file of that name is replaced
// whole or, when this fails, not at all; elsewhere than on Windows a link in its place is replaced,
// never followed, and a folder that is a link is refused.
// `name` holds no separator. Fails with kPathNotFound or kDeviceIo; what `write` throws goes
// through.
void WritePrivateFile(const std::string& folder, const std::string& name, const FileWriter& write);

}  // namespace td
