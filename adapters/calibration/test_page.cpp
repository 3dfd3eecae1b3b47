#include "calibration/test_page.h"

#include <cmath>

#include "calibration/calibration.h"
#include "platform/value.h"

namespace td {
namespace {

constexpr double kHairline = 0.1;  // millimetres, as all lengths here
constexpr double kCrossLine = 0.2;
constexpr double kNearCross = 5;  // a ruler leaves that much out on both sides of a cross
constexpr double kTextHeight = 4;

class TestPage {
 public:
  TestPage(PrintSurface& surface, const PaperExtent& sheet)
      : surface_(surface), sides_(MillimetresOf(sheet)), crosses_(CrossesOf(sheet)) {}

  void DrawCrosses() {
    surface_.PutPenWidth(kCrossLine * kTwipsPerMillimetre);
    for (const double x : {crosses_.across, sides_.across - crosses_.across}) {
      for (const double y : {crosses_.along, sides_.along - crosses_.along}) DrawCross(x, y);
    }
  }

  // The marks of both point outwards.
  void DrawRulers() {
    surface_.PutPenWidth(kHairline * kTwipsPerMillimetre);
    surface_.PutFontSize(kNumberPoints);
    surface_.PutTextAlign(kAlignCentre);
    for (int at = 0; at <= sides_.across; ++at) {
      if (IsNearCross(at, crosses_.across, sides_.across)) continue;
      DrawLine(at, crosses_.along, at, crosses_.along - MarkAt(at));
      if (IsNumbered(at, sides_.across)) {
        Write(std::to_string(at), at - kNumberRoom / 2, crosses_.along, kNumberRoom, kTextHeight);
      }
    }
    surface_.PutTextAlign(kAlignLeft);
    for (int at = 0; at <= sides_.along; ++at) {
      if (IsNearCross(at, crosses_.along, sides_.along)) continue;
      DrawLine(crosses_.across, at, crosses_.across - MarkAt(at), at);
      if (IsNumbered(at, sides_.along)) {
        Write(std::to_string(at), crosses_.across + 1, at - kTextHeight / 2, kNumberRoom,
              kTextHeight);
      }
    }
  }

  void WriteWords(const TestPageWords& words) {
    constexpr double kLeastWidth = 140;
    constexpr double kLeastHeight = 90;
    if (sides_.across < kLeastWidth || sides_.along < kLeastHeight) return;
    constexpr double kBeside = 9;
    constexpr double kLine = 6;
    const double right = sides_.across - crosses_.across;
    const double width = (right - crosses_.across) / 2 - kBeside;
    surface_.PutFontSize(kWordPoints);
    Write(words.topLeft, crosses_.across + kBeside, crosses_.along + kBeside, width, kLine);
    Write(words.bottomLeft, crosses_.across + kBeside,
          sides_.along - crosses_.along - kBeside - kLine, width, kLine);
    surface_.PutTextAlign(kAlignRight);
    Write(words.topRight, right - kBeside - width, crosses_.along + kBeside, width, kLine);
    surface_.PutTextAlign(kAlignCentre);
    double top = (sides_.along - kLine * static_cast<double>(words.lines.size())) / 2;
    for (const std::string& line : words.lines) {
      Write(line, crosses_.across, top, right - crosses_.across, kLine);
      top += kLine;
    }
  }

 private:
  static constexpr int kNumbered = 10;
  static constexpr double kNumberRoom = 10;
  static constexpr double kNumberPoints = 7;
  static constexpr double kWordPoints = 9;

  static double MarkAt(int at) {
    constexpr int kHalf = 5;
    if (at % kNumbered == 0) return 3;
    return at % kHalf == 0 ? 2 : 1;
  }

  // A number at the sheet's end would be cut off.
  static bool IsNumbered(int at, double side) {
    constexpr double kRoom = 4;
    return at % kNumbered == 0 && at >= kRoom && at <= side - kRoom;
  }

  static bool IsNearCross(double at, double cross, double side) {
    return std::abs(at - cross) < kNearCross || std::abs(at - (side - cross)) < kNearCross;
  }

  void DrawCross(double x, double y) {
    constexpr double kArm = 4;
    DrawLine(x - kArm, y, x + kArm, y);
    DrawLine(x, y - kArm, x, y + kArm);
  }

  void DrawLine(double x1, double y1, double x2, double y2) {
    surface_.DrawLine(x1 * kTwipsPerMillimetre, y1 * kTwipsPerMillimetre, x2 * kTwipsPerMillimetre,
                      y2 * kTwipsPerMillimetre);
  }

  void Write(const std::string& text, double left, double top, double width, double height) {
    surface_.TextBox(text, left * kTwipsPerMillimetre, top * kTwipsPerMillimetre,
                     width * kTwipsPerMillimetre, height * kTwipsPerMillimetre);
  }

  PrintSurface& surface_;
  const Distances sides_;
  const Distances crosses_;
};

}  // namespace

void DrawTestPage(PrintSurface& surface, const PaperExtent& sheet, const TestPageWords& words) {
  surface.PutOrientation(kPortrait);
  surface.PutPaperWidth(static_cast<float>(sheet.width));
  surface.PutPaperHeight(static_cast<float>(sheet.height));
  surface.StartDoc();
  TestPage page(surface, sheet);
  page.DrawRulers();
  page.DrawCrosses();
  page.WriteWords(words);
  surface.EndDoc();
}

}  // namespace td
