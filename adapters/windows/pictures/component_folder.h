// The folder that the component lies in.
#pragma once

#include <string>

namespace td {

// That of the DLL that holds the component, or of the program that does; UTF-8, without a separator
// at its end. Fails with kPathNotFound if the system can't tell.
[[nodiscard]] std::string FolderOfLoadedComponent();

}  // namespace td
