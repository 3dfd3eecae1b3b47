// The fonts inside a PDF file: of each only the glyphs that its pages use.
#pragma once

#include <QPainterPath>
#include <QRawFont>
#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "render/font_faces.h"
#include "render/pdf_file.h"

namespace td {

// A glyph as texts in the file name it.
using GlyphCode = std::uint16_t;

// One font of the file, whatever the sizes of its texts.
class PdfFont {
 public:
  // `raw` is at kTrueTypeEm pixels. Its outlines are those of its file, whatever it adds to them.
  PdfFont(const QRawFont& raw, int number);

  // The object that pages refer to.
  [[nodiscard]] int Number() const { return number_; }
  // Whether the font's maker lets it be put into documents.
  [[nodiscard]] bool MayBeEmbedded() const { return mayBeEmbedded_; }

  // The code of a glyph that stands for a character, which a reader extracts; 0 for the character:
  // whichever the font shows with it. Codes count from 1, in the order of first use. `advance` is
  // how far the glyph moves the next one, in thousandths of the font's size; 0: as the font has it.
  GlyphCode CodeOf(quint32 glyph, char32_t character, double advance) {
    Known& known = known_[(character + glyph) % known_.size()];
    if (known.glyph != glyph || known.character != character)
      known = {glyph, character, Find(glyph, character, advance)};
    return known.code;
  }
  // The advance of its first use, as the file has it.
  [[nodiscard]] double AdvanceOf(GlyphCode code) const { return advances_[code]; }
  // The outline of a glyph, in ems of kTrueTypeEm.
  [[nodiscard]] QPainterPath OutlineOf(quint32 glyph) const { return raw_.pathForGlyph(glyph); }

  // Puts the font and all that belongs to it; no code may be asked for afterwards.
  void Put(PdfFile& file) const;

 private:
  struct Known {
    quint32 glyph = 0;
    char32_t character = 0;
    GlyphCode code = 0;
  };
  struct Used {
    quint32 glyph = 0;
    char32_t character = 0;
  };

  GlyphCode Find(quint32 glyph, char32_t character, double advance);
  [[nodiscard]] double AdvanceInFont(quint32 glyph) const;
  char32_t CharacterOf(quint32 glyph);
  [[nodiscard]] std::string Name() const;
  [[nodiscard]] std::string Program() const;
  [[nodiscard]] std::string CharacterMap() const;

  QRawFont raw_;
  int number_;
  bool mayBeEmbedded_;
  std::vector<Used> used_;  // by code; the first one is drawn for no character
  std::vector<double> advances_;
  std::map<std::pair<quint32, char32_t>, GlyphCode> codes_;
  std::array<Known, 256> known_{};
  std::map<quint32, char32_t> characters_;  // of all glyphs, once one is asked for
};

// A font at a size, with what Qt adds where a family has no bold or slanting face.
struct PdfFace {
  PdfFont* font = nullptr;
  double size = 0;          // twips
  bool isSlanted = false;   // by 0.3 of the height
  double strikeBack = 0;    // bold is struck again so far to the left; 0: once is enough
  std::string selection{};  // the operator that makes it the one of the texts that follow
};

// The fonts of one file.
class PdfFonts {
 public:
  explicit PdfFonts(PdfFile& file) : file_(file) {}

  const PdfFace& Of(FaceRef face);
  // Of a text that Qt has shaped.
  PdfFace Of(const QRawFont& raw);

  // Puts all fonts into the file.
  void Put() const;

 private:
  // What tells two fonts apart: their family and style, and the head of their file.
  using Key = std::tuple<QString, QString, QByteArray>;

  PdfFace Make(const QRawFont& raw, const Synthesis& synthesis);

  PdfFile& file_;
  std::map<Key, PdfFont> fonts_;
  std::map<FaceRef, PdfFace> faces_;
  std::pair<FaceRef, const PdfFace*> last_;
};

}  // namespace td
