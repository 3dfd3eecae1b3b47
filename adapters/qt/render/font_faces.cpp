#include "render/font_faces.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QGlyphRun>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

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

bool HasBoldFace(const QString& family) {
  const QStringList styles = QFontDatabase::styles(family);
  return std::ranges::any_of(
      styles, [&](const QString& style) { return QFontDatabase::bold(family, style); });
}

// One line of text as Qt lays it out.
struct ShapedLine {
  double width = 0;
  bool isComplete = false;  // no character is missing in all fonts
};

ShapedLine Shape(const QString& text, const QFont& font) {
  QTextLayout layout(text, font);
  layout.beginLayout();
  const QTextLine line = layout.createLine();
  layout.endLayout();
  if (!line.isValid()) return {};
  const QList<QGlyphRun> runs = line.glyphRuns();
  // Qt draws boxes for missing characters, with a font that has no tables or with glyph 0.
  return {line.naturalTextWidth(), std::ranges::none_of(runs, [](const QGlyphRun& run) {
            return run.glyphIndexes().contains(0) || run.rawFont().fontTable("cmap").isEmpty();
          })};
}

}  // namespace

double ShapedWidth(const QString& text, const QFont& font) {
  return Shape(text, font).width;
}

FontFaces::FontFaces(const TextFont& font)
    : wanted_(font), families_(FontTable::Instance().Families(font.name)) {
  if (families_.isEmpty()) families_.append(QString());  // whatever Qt makes of it
}

FaceRef FontFaces::FaceAt(std::size_t index) {
  while (faces_.size() <= index && static_cast<qsizetype>(faces_.size()) < families_.size()) {
    auto face = std::make_shared<Face>();
    // The first face carries all families: a text that is shaped finds its characters in them.
    face->font.setFamilies(families_.mid(static_cast<qsizetype>(faces_.size())));
    face->size = std::max(wanted_.points * kTwipsPerPoint, kSmallestSize);
    face->font.setPixelSize(std::max(1, static_cast<int>(std::lround(face->size))));
    face->font.setBold(wanted_.bold);
    face->font.setItalic(wanted_.italic);
    face->font.setHintingPreference(QFont::PreferNoHinting);
    face->font.setKerning(false);
    face->raw = QRawFont::fromFont(face->font);
    face->raw.setPixelSize(face->size);
    face->syntheticBold =
        wanted_.bold && !HasBoldFace(families_.at(static_cast<qsizetype>(faces_.size())));
    faces_.push_back(std::move(face));
  }
  return index < faces_.size() ? faces_[index] : nullptr;
}

double FontFaces::LineHeight() {
  return Ascent() + Descent() + std::max(0.0, Primary()->raw.leading());
}

const FaceGlyph& FontFaces::Glyph(char32_t character) {
  const auto [found, isNew] = glyphs_.try_emplace(character);
  FaceGlyph& glyph = found->second;
  if (!isNew) return glyph;
  const QString text = QString::fromUcs4(&character, 1);
  for (std::size_t i = 0; const FaceRef face = FaceAt(i); ++i) {
    const QList<quint32> indexes = face->raw.glyphIndexesForString(text);
    if (indexes.size() != 1 || indexes[0] == 0) continue;
    const QList<QPointF> advances = face->raw.advancesForGlyphIndexes(indexes);
    glyph = {face, indexes[0], advances.at(0).x(), false};
    return glyph;
  }
  const ShapedLine shaped = Shape(text, Primary()->font);
  glyph = {nullptr, 0, shaped.width, !shaped.isComplete};
  return glyph;
}

FontFaces& FacesOf(const TextFont& font) {
  if (Cache().empty()) qAddPostRoutine([] { Cache().clear(); });
  return Cache().try_emplace(font, font).first->second;
}

DrawnCharacters::DrawnCharacters() {
  for (const auto& [font, faces] : Cache()) {
    for (const auto& [character, glyph] : faces.Glyphs()) {
      if (!glyph.face) continue;
      glyphs_.emplace(std::pair(glyph.face, glyph.index), character);
      faces_.insert(glyph.face);
      characters_.insert(character);
    }
  }
}

char16_t DrawnCharacters::For(char16_t character) const {
  if (characters_.contains(character)) return character;
  for (const FaceRef& face : faces_) {
    const QList<quint32> indexes = face->raw.glyphIndexesForString(QString(QChar(character)));
    if (indexes.isEmpty() || indexes[0] == 0) continue;
    const auto drawn = glyphs_.find({face, indexes[0]});
    if (drawn != glyphs_.end() && drawn->second <= 0xFFFF) {
      return static_cast<char16_t>(drawn->second);
    }
  }
  return character;
}

}  // namespace td
