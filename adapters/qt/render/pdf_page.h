// What one page of a PDF file shows.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "page_document/affine_map.h"
#include "page_document/drawing.h"
#include "page_document/pictures.h"
#include "render/pdf_fonts.h"
#include "render/pdf_pictures.h"
#include "render/text_layout.h"

namespace td {

// Draws a page with the operators of the format, in twips from the page's top left corner. Texts
// are strings of glyph codes: readers find and copy them as they were written.
class PdfPage {
 public:
  // Both outlive the page.
  PdfPage(PdfFonts& fonts, PdfPictures& pictures) : fonts_(fonts), pictures_(pictures) {}

  // Through a map of the places, if there is one.
  void Draw(const Page& page, const std::optional<AffineMap>& map);

  [[nodiscard]] const std::string& Content() const { return content_; }
  // The entries of the dictionary that names the fonts and pictures of the content.
  [[nodiscard]] std::string Resources() const;

 private:
  // A glyph that stands at a place.
  struct PlacedGlyph {
    quint32 index = 0;
    char32_t character = 0;  // as PdfFont::CodeOf has it
    double x = 0;
    double y = 0;
    double advance = 0;  // twips; 0: as the font has it
  };
  using Glyphs = std::vector<PlacedGlyph>;

  void Draw(const BoxText& command) { Add(LayOut(command)); }
  void Draw(const PointText& command) { Add(LayOut(command)); }
  void Draw(const Line& line);
  void Draw(const PlacedPicture& placed);
  void DrawImage(const ImagePicture& image, const PlacedPicture& placed);
  void DrawVectors(const VectorPicture& drawing, const PlacedPicture& placed);

  void Add(const std::vector<PlacedText>& texts);
  void AddShaped(const PlacedText& text);
  void AddGlyphs(const PdfFace& face, Glyphs& glyphs);
  void Show(const PdfFace& face, const Glyphs& glyphs);
  std::size_t ShowLine(const PdfFace& face, const Glyphs& glyphs, std::size_t begin);
  void FillOutlines(const PdfFace& face, const Glyphs& glyphs);
  void Select(const PdfFace& face);
  void MoveTo(const PdfFace& face, double x, double y);
  void FlushText();

  PdfFonts& fonts_;
  PdfPictures& pictures_;
  std::string content_;
  std::string texts_;  // that stand on what is drawn already
  double penWidth_ = 0;
  const PdfFont* font_ = nullptr;  // that the texts have selected
  double size_ = 0;
  bool isSlanted_ = false;
  bool hasLine_ = false;    // whether a text has begun at a place
  std::int64_t lineX_ = 0;  // that place, in hundredths
  std::int64_t lineY_ = 0;
  Glyphs glyphs_;  // kept for its room
  std::vector<int> usedFonts_;
  std::vector<int> usedPictures_;
};

}  // namespace td
