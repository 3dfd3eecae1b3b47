// Where lines of text lie, whatever lays them out: the same arithmetic on every desktop.
//
// A `Piece` of a line has its place as `x` and `y`, which count from the beginning of the line's
// base line until it is placed. `faces` are those of a font: they tell Ascent(), Descent() and
// LineHeight(). Lengths are twips.
#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "page_document/commands.h"

namespace td {

// A line that is wider by no more than this is not broken: advances are rounded.
inline constexpr double kBreakTolerance = 0.5;

template <class Piece>
struct LaidLine {
  std::vector<Piece> pieces;
  double width = 0;
};

struct TextBox {
  double left;
  double top;
  double width;
  double height;
};

[[nodiscard]] inline double AlignedStart(TextAlignment alignment, double left, double room,
                                         double width) {
  if (alignment == TextAlignment::kCentre) return left + (room - width) / 2;
  return alignment == TextAlignment::kRight ? left + room - width : left;
}

template <class Piece>
void PlaceLine(LaidLine<Piece> line, double x, double y, std::vector<Piece>& placed) {
  for (Piece& piece : line.pieces) {
    piece.x += x;
    piece.y += y;
    placed.push_back(std::move(piece));
  }
}

// The base line of the first of some lines in the middle of a box.
template <class Faces>
[[nodiscard]] double FirstBaseLine(const TextBox& box, std::size_t lines, Faces& faces) {
  const double text = faces.Ascent() + faces.Descent() +
                      faces.LineHeight() * static_cast<double>(std::max<std::size_t>(lines, 1) - 1);
  return box.top + (box.height - text) / 2 + faces.Ascent();
}

template <class Piece, class Faces>
[[nodiscard]] std::vector<Piece> PlaceInBox(std::vector<LaidLine<Piece>> lines, const TextBox& box,
                                            TextAlignment alignment, Faces& faces) {
  std::vector<Piece> placed;
  double baseLine = FirstBaseLine(box, lines.size(), faces);
  for (LaidLine<Piece>& line : lines) {
    const double x = AlignedStart(alignment, box.left, box.width, line.width);
    PlaceLine(std::move(line), x, baseLine, placed);
    baseLine += faces.LineHeight();
  }
  return placed;
}

// The same for one line.
template <class Piece, class Faces>
[[nodiscard]] std::vector<Piece> PlaceInBox(LaidLine<Piece> line, const TextBox& box,
                                            TextAlignment alignment, Faces& faces) {
  const double x = AlignedStart(alignment, box.left, box.width, line.width);
  const double baseLine = FirstBaseLine(box, 1, faces);
  for (Piece& piece : line.pieces) {
    piece.x += x;
    piece.y += baseLine;
  }
  return std::move(line.pieces);
}

// `facesOf` gives the faces of a run's font, and `layOut` its text as one line in them.
template <class Piece, class FacesOf, class LayOutRun>
[[nodiscard]] std::vector<Piece> PlaceAtPoint(const PointText& text, const FacesOf& facesOf,
                                              const LayOutRun& layOut) {
  std::vector<Piece> placed;
  double top = text.y;
  for (std::size_t i = 0; i < text.lines.size(); ++i) {
    std::vector<LaidLine<Piece>> runs;
    double width = 0;
    double ascent = 0;
    for (const TextRun& run : text.lines[i]) {
      auto& faces = facesOf(*run.font);
      runs.push_back(layOut(run.text, faces));
      width += runs.back().width;
      ascent = std::max(ascent, faces.Ascent());
    }
    double x = AlignedStart(text.alignment, text.x, 0, width);
    for (LaidLine<Piece>& run : runs) {
      const double end = x + run.width;
      PlaceLine(std::move(run), x, top + ascent, placed);
      x = end;
    }
    top += text.heights[i];
  }
  return placed;
}

template <class FacesOf>
[[nodiscard]] double HeightOfLine(const TextLine& line, const FacesOf& facesOf) {
  double ascent = 0;
  double below = 0;
  for (const TextRun& run : line) {
    auto& faces = facesOf(*run.font);
    ascent = std::max(ascent, faces.Ascent());
    below = std::max(below, faces.LineHeight() - faces.Ascent());
  }
  return ascent + below;
}

}  // namespace td
