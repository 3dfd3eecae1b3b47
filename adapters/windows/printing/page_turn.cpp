#include "windows/printing/page_turn.h"

#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"

// Behind the system's other headers.
#include <winspool.h>

namespace td {

// The driver tells by how many degrees a page is turned against the clock.
PageTurn TurnOf(const std::string& printer) {
  const int degrees =
      DeviceCapabilitiesW(ToWide(printer).c_str(), nullptr, DC_ORIENTATION, nullptr, nullptr);
  return degrees == 270 || degrees == -90 ? PageTurn::kTopRight : PageTurn::kTopLeft;
}

}  // namespace td
