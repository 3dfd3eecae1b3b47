#include "windows/render/font_faces.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "platform/failure.h"
#include "windows/render/font_table.h"

namespace td {
namespace {

constexpr double kSmallestSize = 1;   // twips; a font can't be made at no size at all
constexpr std::size_t kHelpers = 16;  // families that are asked for every character of a text

// The tables of a face, read once.
std::shared_ptr<const FontTables> TablesOf(const Face& face) {
  using Key = std::tuple<std::wstring, bool, bool>;
  static std::map<Key, std::shared_ptr<const FontTables>> known;
  std::shared_ptr<const FontTables>& tables = known[{face.family, face.bold, face.italic}];
  if (!tables) {
    const FontOwner font = MakeFont(face, 1000);
    const Selected selected(ScreenDevice(), font.get());
    tables = std::make_shared<const FontTables>(ScreenDevice());
  }
  return tables;
}

}  // namespace

FontOwner MakeFont(const Face& face, int height, int width, int turn) {
  LOGFONTW wanted{};
  wanted.lfHeight = -std::max(1, height);
  wanted.lfWidth = width;
  wanted.lfEscapement = turn;
  wanted.lfOrientation = turn;
  wanted.lfWeight = face.bold ? FW_BOLD : FW_NORMAL;
  wanted.lfItalic = face.italic ? TRUE : FALSE;
  wanted.lfCharSet = DEFAULT_CHARSET;
  wanted.lfOutPrecision = OUT_TT_PRECIS;
  wanted.lfQuality = ANTIALIASED_QUALITY;
  face.family.copy(wanted.lfFaceName, LF_FACESIZE - 1);
  return FontOwner(CreateFontIndirectW(&wanted));
}

FontFaces::FontFaces(const TextFont& font)
    : wanted_(font), families_(FontTable::Instance().Families(font.name)) {}

FaceRef FontFaces::FaceAt(std::size_t index) {
  while (faces_.size() <= index && faces_.size() < families_.size()) {
    const InstalledFamily& family = *families_[faces_.size()];
    auto face = std::make_shared<Face>();
    face->family = family.name;
    face->bold = wanted_.bold && family.hasBold;
    face->italic = wanted_.italic;
    face->syntheticBold = wanted_.bold && !family.hasBold;
    face->tables = TablesOf(*face);
    face->size = std::max(wanted_.points * kTwipsPerPoint, kSmallestSize);
    const double unit = face->size / face->tables->UnitsPerEm();
    face->ascent = face->tables->Ascent() * unit;
    face->descent = face->tables->Descent() * unit;
    face->leading = std::max(0.0, face->tables->Leading() * unit);
    face->lineThickness = face->tables->LineThickness() * unit;
    faces_.push_back(std::move(face));
  }
  return index < faces_.size() ? faces_[index] : nullptr;
}

const FaceRef& FontFaces::Primary() {
  if (!FaceAt(0)) throw Failure(kDeviceIo, "本机没有安装字体。");
  return faces_.front();
}

double FontFaces::LineHeight() {
  return Ascent() + Descent() + Primary()->leading;
}

FaceGlyph FontFaces::GlyphIn(const FaceRef& face, char32_t character) {
  const std::uint32_t glyph = face->tables->GlyphOf(character);
  if (glyph == 0) return {};
  return {face, face->tables->AdvanceOf(glyph) * face->size / face->tables->UnitsPerEm()};
}

bool FontFaces::HasEvenDigits(const FaceRef& face) {
  const double tolerance = face->size / 100;
  const double zero = GlyphIn(face, U'0').advance;
  return std::ranges::all_of(std::u32string_view(U"123456789"), [&](char32_t digit) {
    return std::abs(GlyphIn(face, digit).advance - zero) <= tolerance;
  });
}

FaceRef FontFaces::AsciiFace() {
  for (std::size_t i = 0; !asciiFace_; ++i) {
    const FaceRef face = i < kHelpers ? FaceAt(i) : nullptr;
    if (!face) {
      asciiFace_ = Primary();
    } else if (GlyphIn(face, U'0').face && HasEvenDigits(face)) {
      asciiFace_ = face;
    }
  }
  return asciiFace_;
}

const FaceGlyph& FontFaces::Glyph(char32_t character) {
  const auto [found, isNew] = glyphs_.try_emplace(character);
  if (isNew) found->second = Find(character);
  return found->second;
}

FaceGlyph FontFaces::Find(char32_t character) {
  FaceGlyph glyph;
  if (character >= U' ' && character <= U'~') glyph = GlyphIn(AsciiFace(), character);
  for (std::size_t i = 0; !glyph.face; ++i) {
    const FaceRef face = FaceAt(i);
    if (!face) break;
    glyph = GlyphIn(face, character);
  }
  return glyph;
}

double ShapedWidth(std::wstring_view text, const Face& face) {
  const int units = face.tables->UnitsPerEm();
  const FontOwner font = MakeFont(face, units);
  const Selected selected(ScreenDevice(), font.get());
  SIZE extent{};
  GetTextExtentPoint32W(ScreenDevice(), text.data(), static_cast<int>(text.size()), &extent);
  return extent.cx * face.size / units;
}

FontFaces& FacesOf(const TextFont& font) {
  static std::map<TextFont, FontFaces> known;
  return known.try_emplace(font, font).first->second;
}

}  // namespace td
