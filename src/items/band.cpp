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
  } else {
    band.Meet(Circumstance::kUnknownKind);
  }
}

WitnessedBand WitnessedBandOf(const BandDrawing& drawing) {
  return drawing.isFiller ? WitnessedBand::kFillerRow
                          : static_cast<WitnessedBand>(static_cast<int>(drawing.site));
}

}  // namespace

void DrawBand(PrintWindow& window, const std::string& sql, const BandDrawing& drawing) {
  RunWitness* const witness = window.platform.witness;
  if (witness != nullptr) witness->BandBegins(WitnessedBandOf(drawing));
  const Guard guard(reactions::kDrawing, {}, witness);
  RunRoutine(guard, window.platform.messages, [&](const Guard&) {
    Band band{.window = window, .guard = guard, .site = drawing.site};
    guard.Step([&] { band.items.Open(sql); });
    while (guard.Test([&] { return !band.items.Eof(); })) {
      if (witness != nullptr) witness->ItemBegins(band.items.Rows());
      DrawItem(band, drawing.drawText);
      if (witness != nullptr) witness->ItemEnds();
      guard.Step([&] { band.items.MoveNext(); });
    }
    guard.Step([&] { band.items.Close(); });
    if (drawing.finish) guard.Step(drawing.finish);
  });
  if (witness != nullptr) witness->BandEnds();
}

void DrawHeadBand(PrintWindow& window, void (*drawText)(Band&)) {
  DrawBand(window, HeaderItemStatement(window.request),
           {.site = ItemSite::kHead, .drawText = drawText, .finish = [&window] {
              window.state.HeaderEndY = window.vp.CurrentY();
            }});
}

}  // namespace td
