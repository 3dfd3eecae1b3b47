#include "render/pdf_page.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "page_outputs/number_text.h"
#include "render/true_type.h"

namespace td {
namespace {

// Adds numbers and an operator behind them.
void Append(std::string& content, std::initializer_list<double> numbers,
            std::string_view operation) {
  for (const double number : numbers) {
    AppendNumber(content, number);
    content += ' ';
  }
  content.append(operation).append("\n");
}

// Adds a factor, which needs more places than a length.
void AppendFactor(std::string& content, double factor) {
  std::array<char, 400> digits{};
  content.append(
      digits.data(),
      std::to_chars(digits.begin(), digits.end(), factor, std::chars_format::fixed, 9).ptr);
  content += ' ';
}

void AppendColour(std::string& content, const Colour& colour) {
  for (const int part : {colour.red, colour.green, colour.blue})
    AppendFactor(content, part / 255.0);
  content += "rg\n";
}

// Adds a code to a string in parentheses.
void AppendCode(std::string& content, GlyphCode code) {
  for (const char byte : {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)}) {
    if (byte == '(' || byte == ')' || byte == '\\') content += '\\';
    if (byte == '\r') {
      content += "\\r";
    } else {
      content += byte;
    }
  }
}

void NoteUse(std::vector<int>& numbers, int number) {
  if (std::ranges::find(numbers, number) == numbers.end()) numbers.push_back(number);
}

}  // namespace

void PdfPage::Draw(const Page& page, const std::optional<AffineMap>& map) {
  // Thin lines get the same width wherever they stand between pixels.
  content_ += "/Thin gs\n0.05 0 0 -0.05 0 ";
  AppendFactor(content_, page.height / kTwipsPerPoint);
  content_ += "cm\n";
  if (map) {
    for (const double factor : {map->xx, map->yx, map->xy, map->yy, map->dx, map->dy}) {
      AppendFactor(content_, factor);
    }
    content_ += "cm\n";
  }
  content_ += "2 J\n";
  for (const DrawingCommand& command : page.commands) {
    std::visit([this](const auto& drawn) { Draw(drawn); }, command);
  }
  FlushText();
}

std::string PdfPage::Resources() const {
  std::string entries;
  const auto add = [&entries](const char* kind, char letter, const std::vector<int>& numbers) {
    if (numbers.empty()) return;
    entries.append(kind).append("<<");
    for (const int number : numbers) {
      entries.append("/").append(1, letter).append(std::to_string(number)).append(" ");
      entries.append(Reference(number));
    }
    entries += ">>";
  };
  add("/Font", 'F', usedFonts_);
  add("/XObject", 'P', usedPictures_);
  return entries;
}

void PdfPage::Draw(const Line& line) {
  const double penWidth = std::max(line.penWidth, 1.0);
  if (penWidth != penWidth_) Append(content_, {penWidth}, "w");
  penWidth_ = penWidth;
  Append(content_, {line.x1, line.y1}, "m");
  Append(content_, {line.x2, line.y2}, "l S");
}

void PdfPage::Draw(const PlacedPicture& placed) {
  if (placed.width <= 0 || placed.height <= 0) return;
  FlushText();  // a picture covers the texts that were written before it
  if (const auto* image = dynamic_cast<const ImagePicture*>(placed.picture.get())) {
    DrawImage(*image, placed);
  } else if (const auto* drawing = dynamic_cast<const VectorPicture*>(placed.picture.get())) {
    DrawVectors(*drawing, placed);
  }
}

void PdfPage::DrawImage(const ImagePicture& image, const PlacedPicture& placed) {
  const int number = pictures_.NumberOf(image);
  if (number == 0) return;
  NoteUse(usedPictures_, number);
  content_ += "q\n";
  Append(content_, {placed.width, 0, 0, -placed.height, placed.left, placed.top + placed.height},
         "cm");
  content_ += "/P" + std::to_string(number) + " Do\nQ\n";
}

// Rectangles of one colour that follow each other are one shape: no seam shows between two that
// touch.
void PdfPage::DrawVectors(const VectorPicture& drawing, const PlacedPicture& placed) {
  const double across = placed.width / drawing.NaturalSize().width;
  const double down = placed.height / drawing.NaturalSize().height;
  content_ += "q\n";
  const VectorPicture::Rectangle* last = nullptr;
  for (const VectorPicture::Rectangle& bar : drawing.Rectangles()) {
    if (last != nullptr && last->colour != bar.colour) content_ += "f\n";
    if (last == nullptr || last->colour != bar.colour) AppendColour(content_, bar.colour);
    Append(content_,
           {placed.left + bar.left * across, placed.top + bar.top * down, bar.width * across,
            bar.height * down},
           "re");
    last = &bar;
  }
  if (last != nullptr) content_ += "f\n";
  for (const double factor : {across, 0.0, 0.0, down, placed.left, placed.top}) {
    AppendFactor(content_, factor);
  }
  content_ += "cm\n";
  for (const VectorPicture::Text& text : drawing.Texts()) {
    AppendColour(content_, text.colour);
    Add(LayOut(text));
    FlushText();
  }
  content_ += "Q\n";
}

void PdfPage::Add(const std::vector<PlacedText>& texts) {
  for (const PlacedText& text : texts) {
    if (text.glyphs.empty()) {
      AddShaped(text);
      continue;
    }
    glyphs_.clear();
    double x = text.x;
    for (const FaceGlyph* glyph : text.glyphs) {
      glyphs_.push_back({glyph->index, glyph->character, x, text.y, glyph->advance});
      x += glyph->advance;
    }
    AddGlyphs(fonts_.Of(text.face), glyphs_);
  }
}

void PdfPage::AddShaped(const PlacedText& text) {
  const ShapedText shaped = Shape(QString::fromStdString(text.text), text.face->font);
  for (const QGlyphRun& run : shaped.runs) {
    const QList<quint32> indexes = run.glyphIndexes();
    const QList<QPointF> positions = run.positions();
    glyphs_.clear();
    for (qsizetype i = 0; i < indexes.size(); ++i) {
      glyphs_.push_back(
          {indexes[i], 0, text.x + positions[i].x(), text.y - shaped.ascent + positions[i].y()});
    }
    AddGlyphs(fonts_.Of(run.rawFont()), glyphs_);
  }
}

// A bold that the family lacks is struck twice; readers extract the first stroke alone.
void PdfPage::AddGlyphs(const PdfFace& face, Glyphs& glyphs) {
  const bool areText = face.font->MayBeEmbedded();
  const auto strike = [&] { areText ? Show(face, glyphs) : FillOutlines(face, glyphs); };
  strike();
  if (face.strikeBack == 0) return;
  for (PlacedGlyph& glyph : glyphs) glyph.x -= face.strikeBack;
  if (areText) texts_ += "/Span<</ActualText<FEFF>>>BDC\n";
  strike();
  if (areText) texts_ += "EMC\n";
}

void PdfPage::Show(const PdfFace& face, const Glyphs& glyphs) {
  Select(face);
  for (std::size_t begin = 0; begin < glyphs.size();) begin = ShowLine(face, glyphs, begin);
}

// Shows the glyphs from `begin` that stand on one base line; returns the end of them. Where one
// stands elsewhere than the one before has moved it, a number moves it there.
std::size_t PdfPage::ShowLine(const PdfFace& face, const Glyphs& glyphs, std::size_t begin) {
  constexpr double kTolerance = 0.5;            // twips
  const double thousandths = 1000 / face.size;  // of the size in a twip
  MoveTo(face, glyphs[begin].x, glyphs[begin].y);
  texts_ += "[(";
  double x = glyphs[begin].x;
  std::size_t i = begin;
  for (; i < glyphs.size() && glyphs[i].y == glyphs[begin].y; ++i) {
    const PlacedGlyph& glyph = glyphs[i];
    if (std::abs(glyph.x - x) > kTolerance) {
      texts_ += ')';
      AppendNumber(texts_, (x - glyph.x) * thousandths);
      texts_ += '(';
      x = glyph.x;
    }
    const GlyphCode code =
        face.font->CodeOf(glyph.index, glyph.character, glyph.advance * thousandths);
    AppendCode(texts_, code);
    x += face.font->AdvanceOf(code) / thousandths;
  }
  texts_ += ")]TJ\n";
  return i;
}

void PdfPage::Select(const PdfFace& face) {
  if (font_ == face.font && size_ == face.size) return;
  font_ = face.font;
  size_ = face.size;
  NoteUse(usedFonts_, font_->Number());
  texts_ += face.selection;
}

// Text is moved from the beginning of the one before, except into a slant and out of it.
void PdfPage::MoveTo(const PdfFace& face, double x, double y) {
  const std::int64_t newX = Hundredths(x);
  const std::int64_t newY = Hundredths(y);
  const bool isPlain = hasLine_ && !isSlanted_ && !face.isSlanted;
  if (!isPlain) texts_ += face.isSlanted ? "1 0 0.3 -1 " : "1 0 0 -1 ";
  AppendHundredths(texts_, isPlain ? newX - lineX_ : newX);
  texts_ += ' ';
  AppendHundredths(texts_, isPlain ? lineY_ - newY : newY);
  texts_ += isPlain ? " Td" : " Tm";
  hasLine_ = true;
  isSlanted_ = face.isSlanted;
  lineX_ = newX;
  lineY_ = newY;
}

// For a font that must not be put into documents.
void PdfPage::FillOutlines(const PdfFace& face, const Glyphs& glyphs) {
  const double scale = face.size / kTrueTypeEm;
  for (const PlacedGlyph& glyph : glyphs) {
    const QPainterPath outline = face.font->OutlineOf(glyph.index);
    const auto add = [&](int element, std::string_view operation) {
      const QPainterPath::Element& point = outline.elementAt(element);
      const double slant = face.isSlanted ? -0.3 * point.y : 0;
      Append(content_, {glyph.x + (point.x + slant) * scale, glyph.y + point.y * scale}, operation);
    };
    for (int i = 0; i < outline.elementCount(); ++i) {
      if (outline.elementAt(i).isCurveTo()) {
        add(i, "");
        add(i + 1, "");
        add(i += 2, "c");
      } else {
        add(i, outline.elementAt(i).isMoveTo() ? "m" : "l");
      }
    }
    if (!outline.isEmpty()) content_ += "f\n";
  }
}

void PdfPage::FlushText() {
  if (texts_.empty()) return;
  content_ += "BT\n" + texts_ + "ET\n";
  texts_.clear();
  font_ = nullptr;
  hasLine_ = false;
}

}  // namespace td
