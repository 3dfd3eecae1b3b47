// What a font's own tables say: the same on every device and at every size.
#pragma once

#include <cstdint>
#include <string>

#include "windows/api/windows_api.h"

namespace td {

// Lengths are the font's units, `unitsPerEm` of them to its size.
class FontTables {
 public:
  // The font that is selected into `device`. One that has no such tables, or damaged ones, is found
  // to hold no character.
  explicit FontTables(HDC device);

  // 0 if the font doesn't have the character.
  [[nodiscard]] std::uint32_t GlyphOf(char32_t character) const;
  [[nodiscard]] int AdvanceOf(std::uint32_t glyph) const;

  [[nodiscard]] int UnitsPerEm() const { return unitsPerEm_; }
  [[nodiscard]] int Ascent() const { return ascent_; }
  [[nodiscard]] int Descent() const { return descent_; }  // below the base line, above 0
  [[nodiscard]] int Leading() const { return leading_; }
  [[nodiscard]] int LineThickness() const { return lineThickness_; }

 private:
  void ReadHeights(HDC device);
  void ReadCharacters(HDC device);
  [[nodiscard]] std::uint32_t GlyphInSegments(char32_t character) const;
  [[nodiscard]] std::uint32_t GlyphInGroups(char32_t character) const;

  int unitsPerEm_ = 1000;
  int ascent_ = 0;
  int descent_ = 0;
  int leading_ = 0;
  int lineThickness_ = 0;
  std::string advances_;  // of the first glyphs; the others have the last one's
  std::size_t advanceCount_ = 0;
  std::string characters_;   // the subtable that maps characters to glyphs
  bool isGrouped_ = false;   // it holds characters beyond U+FFFF
  bool isSymbolic_ = false;  // its characters lie from U+F000 on
};

}  // namespace td
