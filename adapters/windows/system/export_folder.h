// The folder of the export file, and the writing of a file in it.
#pragma once

#include <string>

#include "files/written_bytes.h"

namespace td {

// Where the export file goes: %QBTDPRINTER_STATE_DIR%, else QbTdPrinter in %LOCALAPPDATA%. A
// variable that is no absolute path is passed over. Empty when there is neither.
[[nodiscard]] std::string DefaultStateFolder();

// The name that a path ends with: "订单.html" of "c:\订单.html".
[[nodiscard]] std::string FileNameOf(const std::string& path);

// Writes a file into a folder, which is made if it is missing, its parents too. An old file of that
// name is replaced whole or, when this fails, not at all. `name` holds no separator. Fails with
// kPathNotFound or kDeviceIo; what `write` throws goes through.
void WritePrivateFile(const std::string& folder, const std::string& name, const FileWriter& write);

}  // namespace td
