#include "windows/render/text_layout.h"

#include <algorithm>
#include <utility>

#include "page_outputs/text_placing.h"
#include "windows/api/wide_text.h"
#include "windows/render/character_kinds.h"
#include "windows/render/characters.h"
#include "windows/render/line_breaks.h"

namespace td {
namespace {

bool IsShaped(std::wstring_view text) {
  bool needs = false;
  ForEachCharacter(text, [&needs](char32_t code, std::wstring_view) {
    needs = needs || (!IsInvisible(code) && NeedsShaping(code)) || code == 0x200D;
  });
  return needs;
}

// A line in pieces of one face each.
using Laid = LaidLine<PlacedText>;

Laid ShapedLine(std::wstring_view text, FontFaces& faces) {
  const FaceRef& face = faces.Primary();
  const double width = ShapedWidth(text, *face);
  return {{PlacedText{face, std::wstring(text), 0, 0, width, {}}}, width};
}

Laid LayOutLine(std::wstring_view text, FontFaces& faces) {
  if (IsShaped(text)) return ShapedLine(text, faces);
  Laid line;
  ForEachCharacter(text, [&](char32_t code, std::wstring_view units) {
    if (IsInvisible(code)) return;
    const FaceGlyph& glyph = faces.Glyph(code);
    const FaceRef& face = glyph.face ? glyph.face : faces.Primary();
    if (line.pieces.empty() || line.pieces.back().face != face) {
      line.pieces.push_back({face, {}, line.width, 0, 0, {}});
    }
    PlacedText& piece = line.pieces.back();
    piece.text += units;
    piece.width += glyph.advance;
    line.width += glyph.advance;
    piece.advances.push_back(glyph.advance);
    if (units.size() == 2) piece.advances.push_back(0);
  });
  return line;
}

std::wstring_view TrimmedEnd(std::wstring_view text) {
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// Widths of all beginnings of a text, shaped or not.
class Beginnings {
 public:
  Beginnings(std::wstring_view text, FontFaces& faces) {
    if (IsShaped(text)) {
      MeasureShaped(text, *faces.Primary());
      return;
    }
    ForEachCharacter(text, [&](char32_t code, std::wstring_view units) {
      const double advance = IsInvisible(code) ? 0 : faces.Glyph(code).advance;
      if (units.size() == 2) ends_.push_back(ends_.back());
      ends_.push_back(ends_.back() + advance);
    });
  }

  [[nodiscard]] double Between(std::size_t begin, std::size_t end) const {
    return ends_[end] - ends_[begin];
  }

 private:
  void MeasureShaped(std::wstring_view text, const Face& face) {
    const int unitsPerEm = face.tables->UnitsPerEm();
    const FontOwner font = MakeFont(face, unitsPerEm);
    const Selected selected(ScreenDevice(), font.get());
    std::vector<int> extents(text.size());
    SIZE whole{};
    GetTextExtentExPointW(ScreenDevice(), text.data(), static_cast<int>(text.size()), 0, nullptr,
                          extents.data(), &whole);
    for (const int extent : extents) ends_.push_back(extent * face.size / unitsPerEm);
  }

  std::vector<double> ends_ = {0};
};

// For each unit of a text, and for its end: where the text before it ends without blanks.
std::vector<std::size_t> InkEndsOf(std::wstring_view text) {
  std::vector<std::size_t> ends = {0};
  for (std::size_t i = 0; i < text.size(); ++i) {
    ends.push_back(IsBlank(text[i]) ? ends.back() : i + 1);
  }
  return ends;
}

// Breaks a paragraph into parts whose widths without the blanks at their ends are within `width`:
// where lines may break, and between letters of words that are wider. A letter that is wider than
// the line stands alone in it.
std::vector<std::wstring_view> PartsOf(std::wstring_view text, double width, FontFaces& faces) {
  const Beginnings beginnings(text, faces);
  const std::vector<std::size_t> inkEnds = InkEndsOf(text);
  const std::vector<BreakPoint> points = BreakPointsOf(text);
  std::vector<std::wstring_view> parts;
  std::size_t begin = 0;
  std::size_t lineBreak = 0;    // the last one that fits
  std::size_t letterBreak = 0;  // the same between letters
  const auto cut = [&](std::size_t end) {
    parts.push_back(text.substr(begin, end - begin));
    begin = lineBreak = letterBreak = end;
  };
  for (std::size_t end = 1; end <= text.size();) {
    if (!points[end].ofLetter && !points[end].ofLine) {
      ++end;
      continue;
    }
    if (beginnings.Between(begin, std::max(begin, inkEnds[end])) <= width) {
      letterBreak = end;
      if (points[end].ofLine) lineBreak = end;
      ++end;
      continue;
    }
    if (lineBreak > begin) {
      cut(lineBreak);
    } else {
      cut(letterBreak > begin ? letterBreak : end);
    }
    end = std::max(end, begin + 1);
  }
  if (begin < text.size() || parts.empty()) parts.push_back(text.substr(begin));
  return parts;
}

void BreakParagraph(std::wstring_view text, double width, FontFaces& faces,
                    std::vector<Laid>& lines) {
  for (const std::wstring_view part : PartsOf(text, width + kBreakTolerance, faces)) {
    const bool endsParagraph = part.data() + part.size() == text.data() + text.size();
    lines.push_back(LayOutLine(endsParagraph ? part : TrimmedEnd(part), faces));
  }
}

// A line of text as it is drawn: blanks for line breaks and tabs, and question marks for what no
// font of the machine has.
std::wstring Drawable(std::wstring_view text, FontFaces& faces) {
  std::wstring drawable;
  ForEachCharacter(text, [&](char32_t code, std::wstring_view units) {
    const bool endsWithNext =
        code == U'\r' && units.data() + 1 < text.data() + text.size() && units.data()[1] == L'\n';
    if (endsWithNext) return;
    if (IsDrawnAsBlank(code)) {
      drawable += L' ';
    } else if (!IsInvisible(code) && !faces.Glyph(code).face) {
      drawable += L'?';
    } else {
      drawable += units;
    }
  });
  return drawable;
}

Laid OneLine(const std::string& text, FontFaces& faces) {
  return LayOutLine(Drawable(ToWide(text), faces), faces);
}

// The text between its line breaks, of which one at its end begins no line.
std::vector<std::wstring> ParagraphsOf(const std::wstring& text) {
  std::vector<std::wstring> paragraphs(1);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != L'\r' && text[i] != L'\n') {
      paragraphs.back() += text[i];
      continue;
    }
    if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') ++i;
    if (i + 1 < text.size()) paragraphs.emplace_back();
  }
  return paragraphs;
}

}  // namespace

std::vector<PlacedText> LayOut(const BoxText& command) {
  FontFaces& faces = FacesOf(*command.font);
  std::vector<Laid> lines;
  for (const std::wstring& paragraph : ParagraphsOf(ToWide(command.text))) {
    const std::wstring drawable = Drawable(paragraph, faces);
    if (command.wordWrap) {
      BreakParagraph(drawable, command.width, faces, lines);
    } else {
      lines.push_back(LayOutLine(drawable, faces));
    }
  }
  return PlaceInBox(std::move(lines), {command.left, command.top, command.width, command.height},
                    command.alignment, faces);
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
