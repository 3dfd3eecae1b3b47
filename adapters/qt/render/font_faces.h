// The faces of the fonts that texts name, at their size, and the glyphs in them.
#pragma once

#include <QFont>
#include <QRawFont>
#include <array>
#include <map>
#include <memory>
#include <set>
#include <unordered_map>
#include <utility>
#include <vector>

#include "page_document/drawing.h"

namespace td {

// One installed face at one size; a pixel of its fonts is a twip. Hinting is off, so that glyphs
// have the same advances at every resolution.
struct Face {
  QString name;  // of the font, as the format has it
  QFont font;
  QRawFont raw;
  double size = 0;  // twips, as are the heights
  double ascent = 0;
  double descent = 0;
  bool syntheticBold = false;  // bold is wanted and the family has no bold face
};
using FaceRef = std::shared_ptr<const Face>;

// A glyph of one face. Without a face, another font of the machine has the character, or none has
// it (`missing`).
struct FaceGlyph {
  FaceRef face;
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

  [[nodiscard]] const FaceRef& Primary() {
    if (faces_.empty()) (void)FaceAt(0);
    return faces_.front();
  }
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

  // All characters that were looked up, with their glyphs.
  [[nodiscard]] const std::unordered_map<char32_t, FaceGlyph>& Glyphs() const { return glyphs_; }

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
  // The face of the n-th family; empty behind the last.
  FaceRef FaceAt(std::size_t index);
  [[nodiscard]] FaceGlyph GlyphIn(const FaceRef& face, char32_t character) const;
  [[nodiscard]] bool HasEvenDigits(const FaceRef& face) const;
  // The face that the characters of ASCII come from.
  FaceRef AsciiFace();

  TextFont wanted_;
  QStringList families_;
  std::vector<FaceRef> faces_;  // loaded one by one, when a character asks for them
  FaceRef asciiFace_;
  std::unordered_map<char32_t, FaceGlyph> glyphs_;
  std::array<Known, 256> known_{};
};

// Width in twips of a text that Qt shapes, with characters from any font of the machine.
[[nodiscard]] double ShapedWidth(const QString& text, const QFont& font);

// The faces of a font; shared by all texts, kept until the application object is destroyed.
FontFaces& FacesOf(const TextFont& font);

// Which characters the glyphs stood for that have been looked up so far.
class DrawnCharacters {
 public:
  DrawnCharacters();
  // `character` itself if it was looked up, else one that was and has the same glyph as it in a
  // face, else `character`.
  [[nodiscard]] char16_t For(char16_t character) const;

 private:
  std::map<std::pair<FaceRef, quint32>, char32_t> glyphs_;
  std::set<FaceRef> faces_;
  std::set<char32_t> characters_;
};

}  // namespace td
