#include "items/image_items.h"

#include "items/load_goods_picture.h"
#include "text/conversions.h"

namespace td {

void DrawBarcode(Band& band, std::string_view column) {
  Barcode& barcode = band.window.frame->BarcodeMaker();
  band.guard.Step([&] { barcode.PutData(ToLoneText(Context().PrintData->Field(column))); });
  band.guard.Step([&] {
    const PictureRef picture = barcode.GetPicture();
    band.vp.DrawPicture(picture, ItemLeft(band), FixedItemTop(band), ToDouble(band.Item("FWidth")),
                        ToDouble(band.Item("FHeight")));
  });
}

void DrawGoodsPicture(Band& band) {
  const Guard& guard = band.guard;
  PictureHolder& holder = band.window.Image1;
  guard.Step([&] { holder.Width = ToSingle(band.Item("FWidth")); });
  guard.Step([&] { holder.Height = ToSingle(band.Item("FHeight")); });
  guard.Step(
      [&] { LoadGoodsPicture(band.window, ToInteger32(Context().PrintData->Field("FItemiD"))); });
  if (!holder.Picture) return;
  guard.Step([&] {
    band.vp.DrawPicture(holder.Picture, ItemLeft(band), ItemTop(band),
                        ToDouble(band.Item("FWidth")), ToDouble(band.Item("FHeight")));
  });
}

}  // namespace td
