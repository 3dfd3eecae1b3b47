// What a run does with its window.
#pragma once

namespace td {

struct PrintWindow;

// Loads the window if that has not happened: row height, settings, margins. Shows no errors.
void LoadWindow(PrintWindow& window);

// The switch for a run in progress: print, zoom and exit can't be pressed meanwhile.
void SetRunBusy(PrintWindow& window, bool isBusy);

// Writes the page that is shown and the count of pages into the page text box.
void WritePageText(PrintWindow& window);

}  // namespace td
