// How the parts of a print window follow its size.
#pragma once

namespace td {

// Twips, as the window has them now.
struct FrameSizes {
  double innerWidth = 0;
  double innerHeight = 0;
  double stripTop = 0;  // of the tool strip, which keeps its place and height
  double stripHeight = 0;
  double pageBoxWidth = 0;
};

// Twips, as the parts have to be. A very narrow window gives negative widths, which are passed on.
struct FrameLayout {
  double stripWidth = 0;
  double surfaceLeft = 0;
  double surfaceTop = 0;
  double surfaceWidth = 0;
  double surfaceHeight = 0;
  double pageBoxLeft = 0;
  double toolbarBandWidth = 0;
};

// What the toolbar's band leaves of the window beside the page box.
inline constexpr double kTwipsBesideToolbarBand = 1000;

[[nodiscard]] FrameLayout LayOutFrame(const FrameSizes& sizes);

}  // namespace td
