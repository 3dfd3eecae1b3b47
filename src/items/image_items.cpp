#include "items/image_items.h"

#include "items/item_place.h"
#include "items/text_item.h"
#include "store/statements.h"
#include "text/conversions.h"

namespace td {

void DrawBarcode(Band& band, std::string_view column) {
  Barcode& barcode = band.window.frame->BarcodeMaker();
  band.guard.Step([&] { barcode.PutData(ToLoneText(band.Data(*band.request.PrintData, column))); });
  band.guard.Step([&] {
    const PictureRef picture = barcode.GetPicture();
    band.vp.DrawPicture(picture, ItemLeft(band), FixedItemTop(band), ToDouble(band.Item("FWidth")),
                        ToDouble(band.Item("FHeight")));
    band.Drew(DrawnAs::kPicture);
  });
}

void DrawGoodsPicture(Band& band, std::string_view column) {
  const Guard& guard = band.guard;
  PictureHolder& holder = band.window.Image1;
  guard.Step([&] { holder.Width = ToSingle(band.Item("FWidth")); });
  guard.Step([&] { holder.Height = ToSingle(band.Item("FHeight")); });
  guard.Step([&] {
    LoadGoodsPicture(band.window, ToInteger32(band.Data(*band.request.PrintData, column)));
  });
  if (!holder.Picture) {
    band.Meet(Circumstance::kNoPicture);
    return;
  }
  guard.Step([&] {
    band.vp.DrawPicture(holder.Picture, ItemLeft(band), ItemTop(band),
                        ToDouble(band.Item("FWidth")), ToDouble(band.Item("FHeight")));
    band.Drew(DrawnAs::kPicture);
  });
}

bool DrawImage(Band& band) {
  for (const ImageToken& token : kImageTokens) {
    if (!token.WorksIn(band.site) || !HasToken(band, token.name)) continue;
    token.draw(band, token.column);
    return true;
  }
  return false;
}

void LoadGoodsPicture(PrintWindow& window, std::int32_t itemId) {
  Pictures& pictures = window.platform.pictures;
  const Guard routine(reactions::kMessageOnly, {}, window.platform.witness);
  RunRoutine(routine, window.platform.messages, [&](const Guard& guard) {
    guard.Step([&] {
      window.Image1.Picture.reset();
      const std::string path = pictures.ComponentFolder() + "/picture/" + ToText(itemId) + ".jpg";
      if (pictures.FileExists(path)) pictures.DeleteFile(path);
      Query goods(window.platform, window.request);
      goods.Open(GoodsPictureStatement(itemId), CursorType::kKeyset, LockType::kPessimistic);
      if (goods.Eof()) return;
      pictures.SaveNewFile(path, goods.Field("FPicture"));
      window.Image1.Picture = pictures.Load(path);
    });
  });
}

}  // namespace td
