#include "windows/frame_layout.h"

namespace td {

FrameLayout LayOutFrame(const FrameSizes& sizes) {
  return {.stripWidth = sizes.innerWidth - 100,
          .surfaceLeft = 30,
          .surfaceTop = sizes.stripTop + sizes.stripHeight,
          .surfaceWidth = sizes.innerWidth - 60,
          .surfaceHeight = sizes.innerHeight - sizes.stripHeight,
          .pageBoxLeft = sizes.innerWidth - sizes.pageBoxWidth - 300,
          .toolbarBandWidth = sizes.innerWidth - sizes.pageBoxWidth - kTwipsBesideToolbarBand};
}

}  // namespace td
