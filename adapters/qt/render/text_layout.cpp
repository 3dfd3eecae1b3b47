#include "render/text_layout.h"

#include <QTextBoundaryFinder>
#include <QTextLayout>
#include <algorithm>
#include <optional>
#include <string_view>

#include "page_outputs/text_placing.h"
#include "render/outputs.h"

namespace td {
namespace {

bool NeedsShaping(const QString& text, FontFaces& faces) {
  const QList<uint> characters = text.toUcs4();
  return std::ranges::any_of(
      characters, [&faces](char32_t character) { return faces.Glyph(character).needsShaping; });
}

// A line in pieces of one face each.
using Laid = LaidLine<PlacedText>;

Laid ShapedLine(const QString& text, FontFaces& faces) {
  FaceRef face = faces.Primary();
  const double width = Shape(text, face->font).width;
  return {{PlacedText{face, text.toStdString(), 0, 0, width, {}}}, width};
}

Laid LayOutLine(const QString& text, FontFaces& faces) {
  if (NeedsShaping(text, faces)) return ShapedLine(text, faces);
  Laid line;
  FaceRef face = nullptr;  // of the last piece; null if another font has its characters
  for (const char32_t character : text.toUcs4()) {
    const FaceGlyph& glyph = faces.Glyph(character);
    if (glyph.invisible) continue;
    if (line.pieces.empty() || face != glyph.face) {
      face = glyph.face;
      line.pieces.push_back({face != nullptr ? face : faces.Primary(), {}, line.width, 0, 0, {}});
    }
    PlacedText& piece = line.pieces.back();
    piece.text += QString::fromUcs4(&character, 1).toStdString();
    piece.width += glyph.advance;
    line.width += glyph.advance;
    if (face != nullptr) piece.glyphs.push_back(&glyph);
  }
  return line;
}

// The character of the first plane that begins at a place of a text in UTF-8, and the place behind
// it. 0 for any other and for bytes that are no character.
char32_t ShortCharacter(std::string_view text, std::size_t& at) {
  const auto byte = [&text](std::size_t place) -> unsigned {
    return place < text.size() ? static_cast<unsigned char>(text[place]) : 0;
  };
  const auto rest = [&byte](std::size_t place) { return byte(place) & 0x3F; };
  const auto goesOn = [&byte](std::size_t place) { return (byte(place) & 0xC0) == 0x80; };
  const unsigned first = byte(at);
  if (first < 0x80) {
    at += 1;
    return first;
  }
  if (first >= 0xC2 && first < 0xE0 && goesOn(at + 1)) {
    at += 2;
    return (first & 0x1F) << 6 | rest(at - 1);
  }
  if (first < 0xE0 || first >= 0xF0 || !goesOn(at + 1) || !goesOn(at + 2)) return 0;
  at += 3;
  const char32_t character = (first & 0x0F) << 12 | rest(at - 2) << 6 | rest(at - 1);
  return character < 0x800 || QChar::isSurrogate(character) ? 0 : character;
}

// The line of a text whose characters are all drawn as they stand: nearly every one of a form.
// Nothing for any other text.
std::optional<Laid> PlainLine(std::string_view text, FontFaces& faces) {
  Laid line;
  std::size_t begin = 0;  // of the last piece
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    const FaceGlyph& glyph = faces.Glyph(ShortCharacter(text, at));
    if (!glyph.isPlain) return std::nullopt;
    if (line.pieces.empty() || line.pieces.back().face != glyph.face) {
      if (!line.pieces.empty()) line.pieces.back().text = text.substr(begin, start - begin);
      begin = start;
      line.pieces.push_back({glyph.face, {}, line.width, 0, 0, {}});
      line.pieces.back().glyphs.reserve(text.size() - start);
    }
    PlacedText& piece = line.pieces.back();
    piece.glyphs.push_back(&glyph);
    piece.width += glyph.advance;
    line.width += glyph.advance;
  }
  if (!line.pieces.empty()) line.pieces.back().text = text.substr(begin);
  return line;
}

QString TrimmedEnd(const QString& text) {
  qsizetype length = text.size();
  while (length > 0 && text.at(length - 1).isSpace()) --length;
  return text.left(length);
}

// Where each UTF-16 unit of an unshaped text begins, and where the last one ends.
std::vector<double> Positions(const QString& text, FontFaces& faces) {
  std::vector<double> positions = {0};
  for (const char32_t character : text.toUcs4()) {
    const FaceGlyph& glyph = faces.Glyph(character);
    const double advance = glyph.invisible ? 0 : glyph.advance;
    if (QChar::requiresSurrogates(character)) positions.push_back(positions.back());
    positions.push_back(positions.back() + advance);
  }
  return positions;
}

// For each UTF-16 unit of a text, and for its end: where the text before it ends without blanks.
std::vector<qsizetype> InkEnds(const QString& text) {
  std::vector<qsizetype> ends = {0};
  for (qsizetype i = 0; i < text.size(); ++i) {
    ends.push_back(text.at(i).isSpace() ? ends.back() : i + 1);
  }
  return ends;
}

// Breaks an unshaped paragraph into parts of a text, [begin, end) each, whose widths without the
// blanks at their ends are within `width`: where lines may break, and inside words that are wider.
std::vector<std::pair<qsizetype, qsizetype>> Parts(const QString& text, double width,
                                                   FontFaces& faces) {
  const std::vector<double> positions = Positions(text, faces);
  const std::vector<qsizetype> inkEnds = InkEnds(text);
  const auto fits = [&](qsizetype begin, qsizetype end) {
    const qsizetype inkEnd = std::max(begin, inkEnds[static_cast<std::size_t>(end)]);
    return positions[static_cast<std::size_t>(inkEnd)] -
               positions[static_cast<std::size_t>(begin)] <=
           width;
  };
  std::vector<std::pair<qsizetype, qsizetype>> parts;
  qsizetype begin = 0;
  qsizetype fitting = 0;
  const auto cut = [&](qsizetype end) {
    parts.emplace_back(begin, end);
    begin = fitting = end;
  };
  // Made once: each of them looks at the whole text.
  QTextBoundaryFinder breaks(QTextBoundaryFinder::Line, text);
  QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text);
  for (qsizetype end = breaks.toNextBoundary(); end > 0; end = breaks.toNextBoundary()) {
    while (!fits(begin, end)) {
      if (fitting > begin) {
        cut(fitting);
        continue;
      }
      letters.setPosition(begin);
      qsizetype letterEnd = letters.toNextBoundary();
      while (letterEnd > 0 && letterEnd < end && fits(begin, letterEnd)) {
        fitting = letterEnd;
        letterEnd = letters.toNextBoundary();
      }
      if (fitting == begin) fitting = letterEnd > 0 ? letterEnd : end;  // wider than the line
      if (fitting >= end) break;
      cut(fitting);
    }
    fitting = end;
  }
  parts.emplace_back(begin, text.size());
  return parts;
}

// The parts, [begin, end) each, that a shaped text breaks into.
std::vector<std::pair<qsizetype, qsizetype>> ShapedParts(const QString& text, double width,
                                                         const QFont& font) {
  QTextLayout layout(text, font);
  layout.setTextOption([] {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
  }());
  std::vector<std::pair<qsizetype, qsizetype>> parts;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(std::max(width, 1.0));
    parts.emplace_back(line.textStart(), line.textStart() + line.textLength());
  }
  layout.endLayout();
  return parts;
}

// A layout's time grows with the square of a word's length. So a long text is laid out in stretches
// of several lines; the last line of a stretch, which its end cuts off, begins the next one.
void BreakShapedParagraph(const QString& text, double width, FontFaces& faces,
                          std::vector<Laid>& lines) {
  qsizetype stretch = 2048;
  for (qsizetype begin = 0;;) {
    const QString laid = text.mid(begin, stretch);
    const bool reachesEnd = begin + laid.size() == text.size();
    auto parts = ShapedParts(laid, width, faces.Primary()->font);
    if (!reachesEnd && parts.size() < 2) {
      stretch *= 2;
      continue;
    }
    if (!reachesEnd) parts.pop_back();
    for (const auto& [first, last] : parts) {
      lines.push_back(ShapedLine(TrimmedEnd(laid.mid(first, last - first)), faces));
    }
    if (reachesEnd) return;
    begin += parts.back().second;
  }
}

void BreakParagraph(const QString& text, double width, FontFaces& faces, std::vector<Laid>& lines) {
  if (NeedsShaping(text, faces)) {
    BreakShapedParagraph(text, width + kBreakTolerance, faces, lines);
    return;
  }
  for (const auto& [begin, end] : Parts(text, width + kBreakTolerance, faces)) {
    const QString part = text.mid(begin, end - begin);
    lines.push_back(LayOutLine(end < text.size() ? TrimmedEnd(part) : part, faces));
  }
}

// A line of text as it is drawn: blanks for line breaks and tabs, and question marks for what no
// font of the machine has.
QString Drawable(QString text, FontFaces& faces) {
  text.replace(QLatin1String("\r\n"), QLatin1String(" "));
  QString drawable;
  for (const char32_t character : text.toUcs4()) {
    const bool isBlank = character == '\n' || character == '\r' || character == '\t' ||
                         character == QChar::LineSeparator ||
                         character == QChar::ParagraphSeparator;
    if (isBlank) {
      drawable += u' ';
    } else if (!faces.Glyph(character).invisible && faces.Glyph(character).missing) {
      drawable += u'?';
    } else {
      drawable += QString::fromUcs4(&character, 1);
    }
  }
  return drawable;
}

Laid OneLine(const std::string& text, FontFaces& faces) {
  if (std::optional<Laid> plain = PlainLine(text, faces)) return *std::move(plain);
  return LayOutLine(Drawable(QString::fromStdString(text), faces), faces);
}

// The lines between the line breaks, broken inside the width if the box asks for that.
std::vector<Laid> LinesOf(const BoxText& box, QString whole, FontFaces& faces) {
  whole.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
  if (whole.endsWith(u'\n')) whole.chop(1);
  std::vector<Laid> lines;
  for (const QString& paragraph : whole.split(u'\n')) {
    const QString drawable = Drawable(paragraph, faces);
    if (box.wordWrap) {
      BreakParagraph(drawable, box.width, faces, lines);
    } else {
      lines.push_back(LayOutLine(drawable, faces));
    }
  }
  return lines;
}

}  // namespace

std::vector<PlacedText> LayOut(const BoxText& command) {
  FontFaces& faces = FacesOf(*command.font);
  const TextBox box{command.left, command.top, command.width, command.height};
  if (!command.wordWrap) {
    if (std::optional<Laid> plain = PlainLine(command.text, faces)) {
      return PlaceInBox(*std::move(plain), box, command.alignment, faces);
    }
  }
  const QString text = QString::fromStdString(command.text);
  return PlaceInBox(LinesOf(command, text, faces), box, command.alignment, faces);
}

std::vector<PlacedText> LayOut(const PointText& command) {
  return PlaceAtPoint<PlacedText>(command, FacesOf, OneLine);
}

std::vector<PlacedText> LayOut(const VectorPicture::Text& line) {
  FontFaces& faces = FacesOf(line.font);
  return PlaceInBox(OneLine(line.text, faces), {line.left, line.top, line.width, line.height},
                    line.alignment, faces);
}

double LineHeight(const TextLine& line) {
  return HeightOfLine(line, FacesOf);
}

double LineWidth(const TextLine& line) {
  double width = 0;
  for (const TextRun& run : line) width += OneLine(run.text, FacesOf(*run.font)).width;
  return width;
}

}  // namespace td
