// Input that came at the wrong time.
#pragma once

class QWidget;

namespace td {

// Empties the event queue: mouse and keys for the window and what belongs to it are dropped, all
// else, such as painting and the close box, is delivered. Timers wait.
void DropPendingInput(const QWidget& window);

}  // namespace td
