#include "windows/frame_layout.h"

#include <gtest/gtest.h>

namespace td {
namespace {

FrameLayout LayoutOfWidth(double width) {
  return LayOutFrame({.innerWidth = width,
                      .innerHeight = 9000,
                      .stripTop = 15,
                      .stripHeight = 600,
                      .pageBoxWidth = 2500});
}

TEST(FrameLayout, TheSurfaceFillsWhatTheToolStripLeaves) {
  const FrameLayout layout = LayoutOfWidth(12000);
  EXPECT_EQ(layout.stripWidth, 11900);
  EXPECT_EQ(layout.surfaceLeft, 30);
  EXPECT_EQ(layout.surfaceTop, 615);
  EXPECT_EQ(layout.surfaceWidth, 11940);
  EXPECT_EQ(layout.surfaceHeight, 8400);
}

TEST(FrameLayout, ThePageTextStandsAtTheRightAndTheButtonsGetTheRest) {
  const FrameLayout layout = LayoutOfWidth(12000);
  EXPECT_EQ(layout.pageBoxLeft, 9200);
  EXPECT_EQ(layout.toolbarBandWidth, 8500);
}

TEST(FrameLayout, AVeryNarrowWindowGivesNegativeWidths) {
  const FrameLayout layout = LayoutOfWidth(50);
  EXPECT_EQ(layout.stripWidth, -50);
  EXPECT_EQ(layout.surfaceWidth, -10);
  EXPECT_EQ(layout.toolbarBandWidth, -3450);
}

}  // namespace
}  // namespace td
