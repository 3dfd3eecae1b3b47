#include "render/font_faces.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QTextLayout>
#include <algorithm>
#include <cmath>
#include <map>
#include <string_view>

#include "render/fonts.h"

namespace td {
namespace {

constexpr double kSmallestSize = 1;  // twips; a font can't be made at no size at all

using FaceCache = std::map<TextFont, FontFaces>;

// Not destroyed at the end of the process: raw fonts must not outlive the application object.
FaceCache& Cache() {
  static FaceCache& cache = *new FaceCache;
  return cache;
}

// Characters that show nothing: left out of a text that is not shaped.
bool IsInvisible(char32_t character) {
  const QChar::Category category = QChar::category(character);
  return category == QChar::Other_Control || category == QChar::Other_Format;
}

bool EndsLine(char32_t character) {
  const QChar::Category category = QChar::category(character);
  return category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
}

// Whether the glyphs of a character depend on its neighbours.
bool NeedsShaping(char32_t character) {
  constexpr char32_t kZeroWidthJoiner = 0x200D;
  if (character == kZeroWidthJoiner || QChar::isSurrogate(character)) return true;
  switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
      return true;
    default:
      break;
  }
  switch (QChar::script(character)) {
    case QChar::Script_Common:
    case QChar::Script_Latin:
    case QChar::Script_Greek:
    case QChar::Script_Cyrillic:
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Bopomofo:
      return false;
    case QChar::Script_Hangul:
      return character < 0xAC00 || character > 0xD7A3;  // all but whole syllables
    default:
      return true;
  }
}

bool HasBoldFace(const QString& family) {
  const QStringList styles = QFontDatabase::styles(family);
  return std::ranges::any_of(
      styles, [&](const QString& style) { return QFontDatabase::bold(family, style); });
}

// Whether the font's file calls it italic or oblique.
bool IsSlanted(const QRawFont& raw) {
  constexpr int kStyle = 62;  // where it stands
  constexpr int kItalicOrOblique = 0x0201;
  const QByteArray table = raw.fontTable("OS/2");
  if (table.size() < kStyle + 2) return false;
  const int style = static_cast<unsigned char>(table[kStyle]) << 8 |
                    static_cast<unsigned char>(table[kStyle + 1]);
  return (style & kItalicOrOblique) != 0;
}

}  // namespace

ShapedText Shape(const QString& text, const QFont& font) {
  QTextLayout layout(text, font);
  layout.beginLayout();
  const QTextLine line = layout.createLine();
  layout.endLayout();
  if (!line.isValid()) return {};
  const QList<QGlyphRun> runs = line.glyphRuns();
  // Qt draws boxes for missing characters, with a font that has no tables or with glyph 0.
  const bool isComplete = std::ranges::none_of(runs, [](const QGlyphRun& run) {
    return run.glyphIndexes().contains(0) || run.rawFont().fontTable("cmap").isEmpty();
  });
  return {line.naturalTextWidth(), line.ascent(), runs, isComplete};
}

Synthesis SynthesisOf(const QRawFont& raw, bool wantsBold, bool wantsItalic) {
  return {.slants = wantsItalic && !IsSlanted(raw),
          .emboldens = wantsBold && !HasBoldFace(raw.familyName())};
}

FontFaces::FontFaces(const TextFont& font)
    : wanted_(font), families_(FontTable::Instance().Families(font.name)) {
  if (families_.isEmpty()) families_.append(QString());  // whatever Qt makes of it
}

FaceRef FontFaces::FaceAt(std::size_t index) {
  while (faces_.size() <= index && static_cast<qsizetype>(faces_.size()) < families_.size()) {
    auto face = std::make_unique<Face>();
    face->name = QString::fromStdString(wanted_.name);
    // The first face carries all families: a text that is shaped finds its characters in them.
    face->font.setFamilies(families_.mid(static_cast<qsizetype>(faces_.size())));
    face->size = std::max(wanted_.points * kTwipsPerPoint, kSmallestSize);
    face->font.setPixelSize(std::max(1, static_cast<int>(std::lround(face->size))));
    face->font.setBold(wanted_.bold);
    face->font.setItalic(wanted_.italic);
    face->font.setHintingPreference(QFont::PreferNoHinting);
    face->font.setKerning(false);
    QFont alone = face->font;
    alone.setStyleStrategy(QFont::NoFontMerging);  // the fonts that help it out are faces, too
    face->raw = QRawFont::fromFont(alone);
    face->raw.setPixelSize(face->size);
    face->ascent = face->raw.ascent();
    face->descent = face->raw.descent();
    face->synthesis = SynthesisOf(face->raw, wanted_.bold, wanted_.italic);
    faces_.push_back(std::move(face));
  }
  return index < faces_.size() ? faces_[index].get() : nullptr;
}

double FontFaces::LineHeight() {
  return Ascent() + Descent() + std::max(0.0, Primary()->raw.leading());
}

FaceGlyph FontFaces::GlyphIn(FaceRef face, char32_t character) {
  const QList<quint32> indexes = face->raw.glyphIndexesForString(QString::fromUcs4(&character, 1));
  if (indexes.size() != 1 || indexes[0] == 0) return {};
  return {.face = face,
          .index = indexes[0],
          .advance = face->raw.advancesForGlyphIndexes(indexes).at(0).x()};
}

bool FontFaces::HasEvenDigits(FaceRef face) {
  const double tolerance = face->size / 100;
  const double zero = GlyphIn(face, U'0').advance;
  return std::ranges::all_of(std::u32string_view(U"123456789"), [&](char32_t digit) {
    return std::abs(GlyphIn(face, digit).advance - zero) <= tolerance;
  });
}

FaceRef FontFaces::AsciiFace() {
  for (std::size_t i = 0; asciiFace_ == nullptr; ++i) {
    FaceRef face = FaceAt(i);
    if (face == nullptr) {
      asciiFace_ = Primary();
    } else if (GlyphIn(face, U'0').face != nullptr && HasEvenDigits(face)) {
      asciiFace_ = face;
    }
  }
  return asciiFace_;
}

const FaceGlyph& FontFaces::Find(char32_t character) {
  const auto [found, isNew] = glyphs_.try_emplace(character);
  FaceGlyph& glyph = found->second;
  if (!isNew) return glyph;
  glyph.invisible = IsInvisible(character);
  if (glyph.invisible) return glyph;
  if (character >= U' ' && character <= U'~') glyph = GlyphIn(AsciiFace(), character);
  for (std::size_t i = 0; glyph.face == nullptr; ++i) {
    FaceRef face = FaceAt(i);
    if (face == nullptr) break;
    glyph = GlyphIn(face, character);
  }
  if (glyph.face == nullptr) {
    const ShapedText shaped = Shape(QString::fromUcs4(&character, 1), Primary()->font);
    glyph = {.face = nullptr, .advance = shaped.width, .missing = !shaped.isComplete};
  }
  glyph.character = character;
  glyph.needsShaping = NeedsShaping(character);
  glyph.isPlain = glyph.face != nullptr && !glyph.needsShaping && !EndsLine(character);
  return glyph;
}

FontFaces& FacesOf(const TextFont& font) {
  FaceCache& cache = Cache();
  if (cache.empty()) qAddPostRoutine([] { Cache().clear(); });
  return cache.try_emplace(font, font).first->second;
}

}  // namespace td
