// The toolbar of the print windows.
#pragma once

#include <string_view>

namespace td {

struct PrintWindow;

// A button was pressed, named by its key; an unknown key does nothing. An error of the action is
// shown in a message box and the window stays.
void PressButton(PrintWindow& window, std::string_view key);

void ShowNextPage(PrintWindow& window);
void ShowPreviousPage(PrintWindow& window);

}  // namespace td
