// The faces of the fonts that texts name, at their size, and the glyphs in them.
#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QRawFont>
#include <array>
#include <memory>
#include <unordered_map>
#include <vector>

#include "page_document/drawing.h"

namespace td {

// What Qt adds to the glyphs of a font that is not as bold or slanted as it is wanted.
struct Synthesis {
  bool slants = false;
  bool emboldens = false;
};
[[nodiscard]] Synthesis SynthesisOf(const QRawFont& raw, bool wantsBold, bool wantsItalic);

// One installed face at one size; a pixel of its fonts is a twip. Hinting is off, so that glyphs
// have the same advances at every resolution.
struct Face {
  QString name;  // of the font, as the format has it
  QFont font;
  QRawFont raw;
  double size = 0;  // twips, as are the heights
  double ascent = 0;
  double descent = 0;
  Synthesis synthesis;  // that it needs for what is wanted
};
// Good until the application object is destroyed.
using FaceRef = const Face*;

// A glyph of one face. Without a face, another font of the machine has the character, or none has
// it (`missing`).
struct FaceGlyph {
  FaceRef face = nullptr;
  char32_t character = 0;
  quint32 index = 0;
  double advance = 0;  // twips
  bool missing = false;
  bool invisible = false;     // a control or format character: it is left out of texts
  bool needsShaping = false;  // the glyphs of a text with it depend on each other
  bool isPlain = false;       // it is drawn as it stands, whatever stands beside it
};

// The faces that serve one font of a text: the most wanted one, then those that help it out.
class FontFaces {
 public:
  explicit FontFaces(const TextFont& font);

  [[nodiscard]] FaceRef Primary() { return faces_.empty() ? FaceAt(0) : faces_.front().get(); }
  // The glyph of a character in the first face that has it. Where the digits of the first face
  // differ in width, so that columns of numbers would not line up, the characters of ASCII come
  // from the first other face whose digits don't.
  // Good as long as the faces are.
  [[nodiscard]] const FaceGlyph& Glyph(char32_t character) {
    Known& known = known_[character % known_.size()];
    if (known.glyph == nullptr || known.character != character)
      known = {character, &Find(character)};
    return *known.glyph;
  }

  // Twips above and below the base line, and of the whole line, in the primary face.
  [[nodiscard]] double Ascent() { return Primary()->ascent; }
  [[nodiscard]] double Descent() { return Primary()->descent; }
  [[nodiscard]] double LineHeight();

 private:
  // The glyph that was found last among the characters that share a place: texts have few different
  // ones.
  struct Known {
    char32_t character = 0;
    const FaceGlyph* glyph = nullptr;
  };

  const FaceGlyph& Find(char32_t character);
  // The face of the n-th family; null behind the last.
  FaceRef FaceAt(std::size_t index);
  [[nodiscard]] static FaceGlyph GlyphIn(FaceRef face, char32_t character);
  [[nodiscard]] static bool HasEvenDigits(FaceRef face);
  // The face that the characters of ASCII come from.
  FaceRef AsciiFace();

  TextFont wanted_;
  QStringList families_;
  // Loaded one by one, when a character asks for them.
  std::vector<std::unique_ptr<const Face>> faces_;
  FaceRef asciiFace_ = nullptr;
  std::unordered_map<char32_t, FaceGlyph> glyphs_;
  std::array<Known, 256> known_{};
};

// One line of text that Qt shapes, with characters from any font of the machine.
struct ShapedText {
  double width = 0;         // twips
  double ascent = 0;        // of the line above its base line
  QList<QGlyphRun> runs;    // from the line's top
  bool isComplete = false;  // no character is missing in all fonts
};
[[nodiscard]] ShapedText Shape(const QString& text, const QFont& font);

// The faces of a font; shared by all texts, kept until the application object is destroyed.
FontFaces& FacesOf(const TextFont& font);

}  // namespace td
