#include "message_pump.h"

#include "windows/api/windows_api.h"

namespace td {

void PumpUntilEndOf(std::thread& other) {
  HANDLE handle = reinterpret_cast<HANDLE>(pthread_gethandle(other.native_handle()));
  while (MsgWaitForMultipleObjects(1, &handle, FALSE, INFINITE, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
  }
  other.join();
}

}  // namespace td
