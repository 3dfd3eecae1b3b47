// A thread with a message queue, while it waits.
#pragma once

#include <thread>

namespace td {

// The message queue of this thread is looked after until the other one has ended, as a program's
// own loop does; calls from other apartments arrive by it.
void PumpUntilEndOf(std::thread& other);

}  // namespace td
