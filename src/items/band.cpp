#include "items/band.h"

#include "text/conversions.h"

namespace td {
namespace {

constexpr double kTextItem = 0;
constexpr double kLineItem = 1;
constexpr double kPictureItem = 2;

bool IsKind(const Value& typeId, double kind) {
  return IsNumeric(typeId) && ToDouble(typeId) == kind;
}

// Thin lines are a hair thinner than the next width: forms in use rely on these values.
double PenWidthOf(const Value& borderWidth) {
  constexpr double kThinLine = 14;
  constexpr double kTwipsPerUnit = 9;
  const double width = IsNull(borderWidth) ? 0 : ToDouble(borderWidth);
  return width > 1 ? width * kTwipsPerUnit : kThinLine;
}

// Where a line ends. The head adds the offset last, the bands that ride on the rows add the size to
// the finished place: with fractions of a twip the order decides the last digit.
double LineRight(Band& band) {
  const double width = ToDouble(band.Item("FWidth"));
  if (band.ridesOnRows) return width + ItemLeft(band);
  return width + ToDouble(band.Item("FLeft")) + band.state.AdjuctLeft;
}

double LineBottom(Band& band) {
  const double height = ToDouble(band.Item("FHeight"));
  if (band.ridesOnRows) return ItemTop(band) + height;
  return ToDouble(band.Item("FTop")) + height + band.state.AdjuctTop;
}

// Wider than high is horizontal, all else vertical: there is no rectangle.
void DrawLineItem(Band& band) {
  const Guard& guard = band.guard;
  guard.Step([&] { band.vp.PutPenWidth(PenWidthOf(band.Item("Fborderwidth"))); });
  const auto isHorizontal = [&] {
    const Value& width = band.Item("FWidth");
    const Value& height = band.Item("FHeight");
    return !IsNull(width) && !IsNull(height) && ToDouble(width) > ToDouble(height);
  };
  if (guard.Test(isHorizontal)) {
    guard.Step([&] {
      const double x = ItemLeft(band);
      const double y = ItemTop(band);
      band.vp.DrawLine(x, y, LineRight(band), y);
    });
  } else {
    guard.Step([&] {
      const double x = ItemLeft(band);
      const double y = ItemTop(band);
      band.vp.DrawLine(x, y, x, LineBottom(band));
    });
  }
}

void DrawPictureItem(Band& band) {
  band.guard.Step([&] {
    const PictureRef picture =
        band.window.platform.pictures.Load(ToLoneText(band.Item("FPicturePath")));
    band.vp.DrawPicture(picture, ItemLeft(band), ItemTop(band));
  });
}

void DrawItem(Band& band, void (*drawText)(Band&)) {
  const Guard& guard = band.guard;
  guard.Step([&] { band.typeId = band.Item("FTypeID"); });
  if (guard.Test([&] { return IsKind(band.typeId, kTextItem); })) {
    drawText(band);
  } else if (guard.Test([&] { return IsKind(band.typeId, kLineItem); })) {
    DrawLineItem(band);
  } else if (guard.Test([&] { return IsKind(band.typeId, kPictureItem); })) {
    DrawPictureItem(band);
  }
}

int AlignmentCode(const Value& alignment) {
  constexpr int kLeft = 6;
  constexpr int kCentre = 7;
  constexpr int kRight = 8;
  if (IsNull(alignment)) return kRight;
  const double code = ToDouble(alignment);
  if (code == 2) return kCentre;
  return code == 0 ? kLeft : kRight;
}

bool AreEqualTexts(const Value& a, const Value& b) {
  return !IsNull(a) && !IsNull(b) && ToText(a) == ToText(b);
}

}  // namespace

void DrawBand(PrintWindow& window, const std::string& sql, std::int16_t site, bool ridesOnRows,
              void (*drawText)(Band&), const std::function<void()>& finish) {
  RunRoutine(Guard(reactions::kDrawing), window.platform.messages, [&](const Guard& guard) {
    Band band{.window = window, .guard = guard, .site = site, .ridesOnRows = ridesOnRows};
    guard.Step([&] { band.items.Open(window.platform, sql); });
    while (guard.Test([&] { return !band.items.Eof(); })) {
      DrawItem(band, drawText);
      guard.Step([&] { band.items.MoveNext(); });
    }
    guard.Step([&] { band.items.Close(); });
    if (finish) guard.Step(finish);
  });
}

double ItemLeft(Band& band) {
  return ToDouble(band.Item("FLeft")) + band.state.AdjuctLeft;
}

double FixedItemTop(Band& band) {
  return ToDouble(band.Item("FTop")) + band.state.AdjuctTop;
}

double ItemTop(Band& band) {
  const double top = FixedItemTop(band);
  return band.ridesOnRows ? top + band.state.CurrentRowTop + band.state.BandShift : top;
}

void PlaceTextItem(Band& band) {
  const Guard& guard = band.guard;
  PrintSurface& vp = band.vp;
  guard.Step([&] { vp.PutCurrentX(ItemLeft(band)); });
  guard.Step([&] { vp.PutCurrentY(ItemTop(band)); });
  guard.Step([&] { vp.PutFontName(ToLoneText(band.Item("FFontName"))); });
  guard.Step([&] { vp.PutFontSize(ToSingle(band.Item("FFontSize"))); });
  guard.Step([&] { vp.PutFontBold(ToFlag(band.Item("FFontBold"))); });
  guard.Step([&] { vp.PutFontItalic(ToFlag(band.Item("FFontItalic"))); });
  guard.Step([&] { vp.PutTextAlign(AlignmentCode(band.Item("FAlignMent"))); });
}

void ReadCaption(Band& band) {
  const WindowKind& kind = band.window.kind;
  band.guard.Step([&] {
    const Value& caption = band.Item("FObjectCaption");
    band.caption = kind.keepsCaptionOnNull ? ToLoneText(caption) : ToText(caption);
  });
  if (!kind.clearsRepeatedCaptions) return;
  const auto repeatsName = [&] {
    return AreEqualTexts(band.Item("FObjectCaption"), band.Item("FObjectFieldName"));
  };
  if (band.guard.Test(repeatsName)) band.caption.clear();
}

void ReadField(Band& band) {
  band.field.clear();
  if (band.guard.Test([&] { return !IsNull(band.Item("FFieldName")); })) {
    band.guard.Step([&] { band.field = ToLoneText(band.Item("FFieldName")); });
  }
}

bool HasToken(Band& band, std::string_view token) {
  if (!band.window.kind.drawsImages) return false;
  return band.guard.Test([&] {
    const Value& name = band.Item("FObjectFieldName");
    return !IsNull(name) && ToText(name) == token;
  });
}

bool IsAutoSize(Band& band) {
  return band.guard.Test([&] {
    const Value& autoSize = band.Item("FAutoSize");
    return !IsNull(autoSize) && ToFlag(autoSize);
  });
}

void Box(Band& band, const std::function<std::string()>& makeText) {
  band.guard.Step([&] {
    const std::string text = makeText();
    band.vp.TextBox(text, ItemLeft(band), ItemTop(band), ToDouble(band.Item("FWidth")),
                    ToDouble(band.Item("FHeight")), band.Item("FWordWrap"));
  });
}

void WriteFreeOrBoxed(Band& band, const std::function<std::string()>& makeText) {
  if (IsAutoSize(band)) {
    band.guard.Step([&] { band.vp.PutParagraph(makeText()); });
  } else {
    Box(band, makeText);
  }
}

void StoreTotalPageStamp(Band& band) {
  const Guard& guard = band.guard;
  RunState& state = band.state;
  state.StampCount += 1;
  state.HasTotalPageStamp = true;
  std::size_t slot = 0;
  guard.Step([&] { slot = band.site == 2 ? 0 : band.vp.PageCount() == 1 ? 1 : 2; });
  TotalPageStamp& stamp = state.stamps[slot];
  guard.Step([&] {
    const double top = FixedItemTop(band);
    stamp.StampTop = slot == 0 ? top : top + state.CurrentRowTop + state.BandShift;
  });
  guard.Step([&] { stamp.StampLeft = ItemLeft(band); });
  guard.Step([&] { stamp.StampWidth = ToDouble(band.Item("FWidth")); });
  guard.Step([&] { stamp.StampHeight = ToDouble(band.Item("FHeight")); });
  guard.Step([&] { stamp.StampFontName = ToLoneText(band.Item("FFontName")); });
  guard.Step([&] { stamp.StampFontSize = ToInteger16(band.Item("FFontSize")); });
  guard.Step([&] { stamp.StampFontBold = ToFlag(band.Item("FFontBold")); });
}

}  // namespace td
