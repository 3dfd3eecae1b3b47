#include "items/band.h"

#include "items/lines_and_pictures.h"
#include "store/statements.h"
#include "text/conversions.h"

namespace td {
namespace {

bool IsKind(const Value& typeId, ItemKind kind) {
  return IsNumeric(typeId) && ToDouble(typeId) == static_cast<double>(kind);
}

void DrawItem(Band& band, void (*drawText)(Band&)) {
  const Guard& guard = band.guard;
  guard.Step([&] { band.typeId = band.Item("FTypeID"); });
  if (guard.Test([&] { return IsKind(band.typeId, ItemKind::kText); })) {
    drawText(band);
  } else if (guard.Test([&] { return IsKind(band.typeId, ItemKind::kLine); })) {
    DrawLineItem(band);
  } else if (guard.Test([&] { return IsKind(band.typeId, ItemKind::kPicture); })) {
    DrawPictureItem(band);
  }
}

}  // namespace

void DrawBand(PrintWindow& window, const std::string& sql, ItemSite site, void (*drawText)(Band&),
              const std::function<void()>& finish) {
  RunRoutine(Guard(reactions::kDrawing), window.platform.messages, [&](const Guard& guard) {
    Band band{.window = window, .guard = guard, .site = site};
    guard.Step([&] { band.items.Open(sql); });
    while (guard.Test([&] { return !band.items.Eof(); })) {
      DrawItem(band, drawText);
      guard.Step([&] { band.items.MoveNext(); });
    }
    guard.Step([&] { band.items.Close(); });
    if (finish) guard.Step(finish);
  });
}

void DrawHeadBand(PrintWindow& window, void (*drawText)(Band&)) {
  DrawBand(window, HeaderItemStatement(window.request), ItemSite::kHead, drawText,
           [&window] { window.state.HeaderEndY = window.vp.CurrentY(); });
}

}  // namespace td
