// The faces of the fonts that texts name, at their size, and the glyphs in them.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "page_document/drawing.h"
#include "windows/render/font_tables.h"
#include "windows/render/installed_families.h"
#include "windows/render/screen_device.h"

namespace td {

// One installed face at one size. Its lengths come from the font's own tables, so that glyphs have
// the same advances on every device and at every resolution.
struct Face {
  std::wstring family;
  bool bold = false;  // of the family's own
  bool italic = false;
  bool syntheticBold = false;  // bold is wanted and the family has no bold face
  std::shared_ptr<const FontTables> tables;
  double size = 0;  // twips, as are the heights
  double ascent = 0;
  double descent = 0;
  double leading = 0;
  double lineThickness = 0;
};
using FaceRef = std::shared_ptr<const Face>;

// The face as the system's font, so many of a device's units high and, if `width` isn't 0, with
// characters that are so wide on average, turned by tenths of a degree against the clock.
[[nodiscard]] FontOwner MakeFont(const Face& face, int height, int width = 0, int turn = 0);

// A glyph of one face. Without a face no font of the machine has the character.
struct FaceGlyph {
  FaceRef face;
  double advance = 0;  // twips
};

// The faces that serve one font of a text: the most wanted one, then those that help it out.
class FontFaces {
 public:
  explicit FontFaces(const TextFont& font);

  // Fails with kDeviceIo on a machine without fonts.
  [[nodiscard]] const FaceRef& Primary();
  // The glyph of a character in the first face that has it. Where the digits of the first face
  // differ in width, so that columns of numbers would not line up, the characters of ASCII come
  // from the first other face whose digits don't.
  // Good as long as the faces are.
  [[nodiscard]] const FaceGlyph& Glyph(char32_t character);

  // Twips above and below the base line, and of the whole line, in the primary face.
  [[nodiscard]] double Ascent() { return Primary()->ascent; }
  [[nodiscard]] double Descent() { return Primary()->descent; }
  [[nodiscard]] double LineHeight();

 private:
  [[nodiscard]] FaceGlyph Find(char32_t character);
  // The face of the n-th family; empty behind the last.
  FaceRef FaceAt(std::size_t index);
  [[nodiscard]] static FaceGlyph GlyphIn(const FaceRef& face, char32_t character);
  [[nodiscard]] static bool HasEvenDigits(const FaceRef& face);
  // The face that the characters of ASCII come from.
  FaceRef AsciiFace();

  TextFont wanted_;
  std::vector<const InstalledFamily*> families_;
  std::vector<FaceRef> faces_;  // loaded one by one, when a character asks for them
  FaceRef asciiFace_;
  std::unordered_map<char32_t, FaceGlyph> glyphs_;
};

// Width in twips of a text that the system shapes.
[[nodiscard]] double ShapedWidth(std::wstring_view text, const Face& face);

// The faces of a font; shared by all texts, kept until the process ends.
FontFaces& FacesOf(const TextFont& font);

}  // namespace td
