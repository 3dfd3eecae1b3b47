#include "items/lines_and_pictures.h"

#include "items/item_place.h"
#include "text/conversions.h"

namespace td {

// Thin lines are a hair thinner than the next width: forms in use rely on these values.
double PenWidthOf(const Value& borderWidth) {
  constexpr double kThinLine = 14;
  constexpr double kTwipsPerUnit = 9;
  const double width = IsNull(borderWidth) ? 0 : ToDouble(borderWidth);
  return width > 1 ? width * kTwipsPerUnit : kThinLine;
}

bool RunsToTheRight(const Value& width, const Value& height) {
  return !IsNull(width) && !IsNull(height) && ToDouble(width) > ToDouble(height);
}

void DrawLineItem(Band& band) {
  const Guard& guard = band.guard;
  guard.Step([&] { band.vp.PutPenWidth(PenWidthOf(band.Item("Fborderwidth"))); });
  const auto isHorizontal = [&] {
    const Value& width = band.Item("FWidth");
    const Value& height = band.Item("FHeight");
    return RunsToTheRight(width, height);
  };
  if (guard.Test(isHorizontal)) {
    guard.Step([&] {
      const double x = ItemLeft(band);
      const double y = ItemTop(band);
      band.vp.DrawLine(x, y, LineRight(band), y);
      band.Drew(DrawnAs::kLine);
    });
  } else {
    guard.Step([&] {
      const double x = ItemLeft(band);
      const double y = ItemTop(band);
      band.vp.DrawLine(x, y, x, LineBottom(band));
      band.Drew(DrawnAs::kLine);
    });
  }
}

void DrawPictureItem(Band& band) {
  band.guard.Step([&] {
    const PictureRef picture =
        band.window.platform.pictures.Load(ToLoneText(band.Item("FPicturePath")));
    band.vp.DrawPicture(picture, ItemLeft(band), ItemTop(band));
    band.Drew(DrawnAs::kPicture);
  });
}

}  // namespace td
