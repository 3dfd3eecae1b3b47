#pragma once

#include <cstdint>

namespace td {

struct PrintWindow;

// Loads the stored picture of a goods into the window's holder, by way of a file in the folder
// "picture" beside the component; the holder is empty if there is none. The file is written anew
// each time, so that a changed picture prints at once. Errors are shown in a message box.
void LoadGoodsPicture(PrintWindow& window, std::int32_t itemId);

}  // namespace td
