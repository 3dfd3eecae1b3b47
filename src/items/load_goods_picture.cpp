#include "items/load_goods_picture.h"

#include "store/error_policy.h"
#include "store/query.h"
#include "store/statements.h"
#include "text/conversions.h"
#include "windows/print_window.h"

namespace td {

void LoadGoodsPicture(PrintWindow& window, std::int32_t itemId) {
  Pictures& pictures = window.platform.pictures;
  RunRoutine(Guard(reactions::kMessageOnly), window.platform.messages, [&](const Guard& guard) {
    guard.Step([&] {
      window.Image1.Picture.reset();
      const std::string path = pictures.ComponentFolder() + "/picture/" + ToText(itemId) + ".jpg";
      if (pictures.FileExists(path)) pictures.DeleteFile(path);
      Query goods;
      goods.Open(window.platform, GoodsPictureStatement(itemId), CursorType::kKeyset,
                 LockType::kPessimistic);
      if (goods.Eof()) return;
      pictures.SaveNewFile(path, goods.Field("FPicture"));
      window.Image1.Picture = pictures.Load(path);
    });
  });
}

}  // namespace td
