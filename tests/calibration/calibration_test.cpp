// What distances say about a printer, and what makes up for it.
#include "calibration/calibration.h"

#include <gtest/gtest.h>

#include <cmath>

namespace td {
namespace {

constexpr PaperExtent kA4{210 * kTwipsPerMillimetre, 297 * kTwipsPerMillimetre};
constexpr double kRadians = 0.017453292519943295;

// Where the crosses of A4 come out, twips, as distances from the nearest edges.
Calibration MeasuredAfter(const AffineMap& map) {
  const auto measured = [&map](double x, double y) {
    PlanePoint place = map({x * kTwipsPerMillimetre, y * kTwipsPerMillimetre});
    place.x /= kTwipsPerMillimetre;
    place.y /= kTwipsPerMillimetre;
    return Distances{x < 105 ? place.x : 210 - place.x, y < 148 ? place.y : 297 - place.y};
  };
  return {.printer = "针式打印机",
          .sheet = MillimetresOf(kA4),
          .asked = CrossesOf(kA4),
          .topLeft = measured(20, 20),
          .topRight = measured(190, 20),
          .bottomLeft = measured(20, 277)};
}

void ExpectNear(PlanePoint one, PlanePoint other) {
  EXPECT_NEAR(one.x, other.x, 1e-6);
  EXPECT_NEAR(one.y, other.y, 1e-6);
}

void ExpectSame(const AffineMap& one, const AffineMap& other) {
  for (const PlanePoint place : {PlanePoint{0, 0}, {11000, 300}, {-40, 16000}}) {
    ExpectNear(one(place), other(place));
  }
}

// Shifted, turned, stretched and sheared at once.
constexpr AffineMap kCrooked{1.004, -0.006, 0.009, 0.997, 80, -41};

TEST(AffineMap, IsUndoneByItsInverse) {
  const auto inverse = InverseOf(kCrooked);
  ASSERT_TRUE(inverse);
  ExpectSame(Combined(kCrooked, *inverse), {});
  ExpectSame(Combined(*inverse, kCrooked), {});
}

TEST(AffineMap, OfALineHasNoInverse) {
  EXPECT_FALSE(InverseOf({1, 2, 2, 4, 0, 0}));
  EXPECT_FALSE(InverseOf({NAN, 0, 0, 1, 0, 0}));
  EXPECT_FALSE(MapBetween({PlanePoint{0, 0}, {1, 1}, {2, 2}}, {PlanePoint{0, 0}, {1, 0}, {0, 1}}));
}

TEST(Calibration, IsExactForTheThreeCrosses) {
  const auto map = MapOf(MeasuredAfter(kCrooked));
  ASSERT_TRUE(map);
  ExpectSame(*map, kCrooked);
}

TEST(Calibration, CountsDistancesFromTheNearestEdges) {
  Calibration calibration = MeasuredAfter({});
  calibration.topRight = {18, 20};    // two millimetres too far to the right
  calibration.bottomLeft = {20, 21};  // one too high
  const auto map = MapOf(calibration);
  ASSERT_TRUE(map);
  ExpectNear((*map)({190 * kTwipsPerMillimetre, 20 * kTwipsPerMillimetre}),
             {192 * kTwipsPerMillimetre, 20 * kTwipsPerMillimetre});
  ExpectNear((*map)({20 * kTwipsPerMillimetre, 277 * kTwipsPerMillimetre}),
             {20 * kTwipsPerMillimetre, 276 * kTwipsPerMillimetre});
}

TEST(Calibration, TellsShiftTurnAndStretch) {
  const double cosine = std::cos(0.5 * kRadians);
  const double sine = std::sin(0.5 * kRadians);
  const Distortion distortion =
      DistortionOf({1.005 * cosine, -0.99 * sine, 1.005 * sine, 0.99 * cosine,
                    2.3 * kTwipsPerMillimetre, -1.1 * kTwipsPerMillimetre});
  EXPECT_NEAR(distortion.shiftAcross, 2.3, 1e-9);
  EXPECT_NEAR(distortion.shiftAlong, -1.1, 1e-9);
  EXPECT_NEAR(distortion.turn, 0.5, 1e-9) << "what goes down to the right turns clockwise";
  EXPECT_NEAR(distortion.skew, 0, 1e-9);
  EXPECT_NEAR(distortion.stretchAcross, 0.5, 1e-9);
  EXPECT_NEAR(distortion.stretchAlong, -1, 1e-9);
}

TEST(Calibration, TellsASkew) {
  const Distortion distortion = DistortionOf({1, -std::tan(0.4 * kRadians), 0, 1, 0, 0});
  EXPECT_NEAR(distortion.turn, 0, 1e-9);
  EXPECT_NEAR(distortion.skew, -0.4, 1e-9);
}

TEST(Calibration, OfNothingButMisreadingsIsNotBelieved) {
  EXPECT_TRUE(IsPlausible(DistortionOf(kCrooked)));
  EXPECT_TRUE(IsPlausible({.shiftAcross = 19.9}));
  EXPECT_FALSE(IsPlausible({.shiftAcross = 15, .shiftAlong = -15}));
  EXPECT_FALSE(IsPlausible({.turn = -3.1}));
  EXPECT_FALSE(IsPlausible({.skew = 3.1}));
  EXPECT_FALSE(IsPlausible({.stretchAcross = 5.1}));
  EXPECT_FALSE(IsPlausible({.stretchAlong = -5.1}));
}

TEST(Calibration, WantsDistancesThatThePageCouldShow) {
  const Calibration good = MeasuredAfter({});
  EXPECT_TRUE(PlausibleMap(good));
  for (const double wrong : {0.0, -3.0, 150.0, static_cast<double>(NAN)}) {
    Calibration bad = good;
    bad.topRight.along = wrong;
    EXPECT_FALSE(MapOf(bad)) << wrong;
  }
  Calibration tiny = good;
  tiny.sheet = {20, 20};
  EXPECT_FALSE(MapOf(tiny));
}

TEST(Calibration, PutsTheCrossesOfSmallSheetsNearerToTheEdges) {
  const Distances usual = CrossesOf(kA4);
  EXPECT_EQ(usual.across, 20);
  EXPECT_EQ(usual.along, 20);
  const Distances label = CrossesOf({60 * kTwipsPerMillimetre, 40 * kTwipsPerMillimetre});
  EXPECT_EQ(label.across, 12);
  EXPECT_EQ(label.along, 8);
}

TEST(Correction, BringsAnUprightPageRight) {
  const Page page{kA4.width, kA4.height, {}};
  ExpectSame(Combined(kCrooked, CorrectionOn(page, kCrooked, LandscapeTurn::kTopLeft)), {});
}

// The printing system lays the page on the sheet, then the printer misses.
TEST(Correction, BringsAPageAcrossTheSheetRight) {
  const Page page{kA4.height, kA4.width, {}, kPaperA4, true};
  const AffineMap topLeft{0, 1, -1, 0, 0, page.width};
  const AffineMap topRight{0, -1, 1, 0, page.height, 0};
  ExpectNear(topLeft({0, 0}), {0, kA4.height});
  ExpectNear(topRight({0, 0}), {kA4.width, 0});
  for (const auto& [turn, laid] : {std::pair(LandscapeTurn::kTopLeft, topLeft),
                                   std::pair(LandscapeTurn::kTopRight, topRight)}) {
    const AffineMap correction = CorrectionOn(page, kCrooked, turn);
    ExpectSame(Combined(kCrooked, Combined(laid, correction)), laid);
  }
}

}  // namespace
}  // namespace td
