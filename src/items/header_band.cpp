#include "items/header_band.h"

#include "store/statements.h"

namespace td {

void DrawHeaderBand(PrintWindow& window, std::int16_t site, void (*drawText)(Band&)) {
  DrawBand(window, HeaderItemStatement(Context(), site), site, false, drawText,
           [&window] { window.state.HeaderEndY = window.vp.CurrentY(); });
}

}  // namespace td
