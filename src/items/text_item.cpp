#include "items/text_item.h"

#include "items/item_place.h"
#include "text/conversions.h"

namespace td {
namespace {

TextAlignCode AlignCodeOf(const Value& alignment) {
  const auto is = [&](ItemAlignment wanted) {
    return ToDouble(alignment) == static_cast<double>(wanted);
  };
  if (IsNull(alignment)) return kAlignRight;
  if (is(ItemAlignment::kCentre)) return kAlignCentre;
  return is(ItemAlignment::kLeft) ? kAlignLeft : kAlignRight;
}

bool AreEqualTexts(const Value& a, const Value& b) {
  return !IsNull(a) && !IsNull(b) && ToText(a) == ToText(b);
}

}  // namespace

void PlaceTextItem(Band& band) {
  const Guard& guard = band.guard;
  PrintSurface& vp = band.vp;
  guard.Step([&] { vp.PutCurrentX(ItemLeft(band)); });
  guard.Step([&] { vp.PutCurrentY(ItemTop(band)); });
  guard.Step([&] { vp.PutFontName(ToLoneText(band.Item("FFontName"))); });
  guard.Step([&] { vp.PutFontSize(ToSingle(band.Item("FFontSize"))); });
  guard.Step([&] { vp.PutFontBold(ToFlag(band.Item("FFontBold"))); });
  guard.Step([&] { vp.PutFontItalic(ToFlag(band.Item("FFontItalic"))); });
  guard.Step([&] { vp.PutTextAlign(AlignCodeOf(band.Item("FAlignMent"))); });
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
  if (!band.guard.Test(repeatsName)) return;
  band.Meet(Circumstance::kRepeatedCaption);
  band.caption.clear();
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
  return band.guard.Test([&] { return IsSet(band.Item("FAutoSize")); });
}

void Paragraph(Band& band, const std::function<std::string()>& makeText) {
  band.guard.Step([&] {
    const std::string text = makeText();
    band.vp.PutParagraph(text);
    band.Drew(DrawnAs::kText, text);
  });
}

void RunningText(Band& band, const std::function<std::string()>& makeText) {
  band.guard.Step([&] {
    const std::string text = makeText();
    band.vp.PutText(text);
    band.Drew(DrawnAs::kText, text);
  });
}

void DrawBox(Band& band, const std::string& text) {
  band.vp.TextBox(text, ItemLeft(band), ItemTop(band), ToDouble(band.Item("FWidth")),
                  ToDouble(band.Item("FHeight")), StoredFlag{band.Item("FWordWrap")});
  band.Drew(DrawnAs::kText, text);
}

void Box(Band& band, const std::function<std::string()>& makeText) {
  band.guard.Step([&] { DrawBox(band, makeText()); });
}

void WriteFreeOrBoxed(Band& band, const std::function<std::string()>& makeText) {
  if (IsAutoSize(band)) {
    Paragraph(band, makeText);
  } else {
    Box(band, makeText);
  }
}

}  // namespace td
