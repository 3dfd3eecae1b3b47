#include "render/true_type.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <utility>

namespace td {
namespace {

void Append16(std::string& table, int number) {
  table += static_cast<char>(number >> 8);
  table += static_cast<char>(number);
}

void Append32(std::string& table, std::uint32_t number) {
  Append16(table, static_cast<int>(number >> 16));
  Append16(table, static_cast<int>(number & 0xFFFF));
}

int Rounded(double units) {
  constexpr double kFarthest = 32767;
  return static_cast<int>(std::lround(std::clamp(units, -kFarthest, kFarthest)));
}

struct Point {
  int x = 0;
  int y = 0;
  bool isOnCurve = true;  // else it controls a quadratic curve
  bool operator==(const Point&) const = default;
};

using Contour = std::vector<Point>;

// The outlines of a glyph, in lines and quadratic curves with whole coordinates.
class Contours {
 public:
  explicit Contours(const QPainterPath& outline) {
    for (int i = 0; i < outline.elementCount(); ++i) {
      const QPainterPath::Element& element = outline.elementAt(i);
      if (element.isMoveTo()) {
        Close();
        contours_.emplace_back();
      }
      if (element.isCurveTo()) {
        AddCubic(outline.elementAt(i), outline.elementAt(i + 1), outline.elementAt(i + 2));
        i += 2;
      } else {
        Add(element, true);
      }
    }
    Close();
  }

  [[nodiscard]] const std::vector<Contour>& All() const { return contours_; }

 private:
  void Add(const QPointF& point, bool isOnCurve) {
    if (isOnCurve) at_ = point;
    contours_.back().push_back({Rounded(point.x()), Rounded(-point.y()), isOnCurve});
  }

  // A cubic curve in as many quadratic ones as keep within a unit of it.
  void AddCubic(const QPointF& control1, const QPointF& control2, const QPointF& end) {
    constexpr double kTolerance = 1;
    const QPointF start = at_;
    const QPointF bend = end - 3 * control2 + 3 * control1 - start;
    const double deviation = std::sqrt(3.0) / 36 * std::hypot(bend.x(), bend.y());
    const int parts =
        std::clamp(static_cast<int>(std::ceil(std::cbrt(deviation / kTolerance))), 1, 8);
    const auto pointAt = [&](double t) {
      const double u = 1 - t;
      return u * u * u * start + 3 * u * u * t * control1 + 3 * u * t * t * control2 +
             t * t * t * end;
    };
    const auto slopeAt = [&](double t) {
      const double u = 1 - t;
      return 3 * u * u * (control1 - start) + 6 * u * t * (control2 - control1) +
             3 * t * t * (end - control2);
    };
    for (int part = 0; part < parts; ++part) {
      const double from = static_cast<double>(part) / parts;
      const double to = static_cast<double>(part + 1) / parts;
      const QPointF first = pointAt(from);
      const QPointF last = part + 1 == parts ? end : pointAt(to);
      // Between the controls that the cubic curve has in this part.
      const QPointF control = (first + last) / 2 + (to - from) / 4 * (slopeAt(from) - slopeAt(to));
      Add(control, false);
      Add(last, true);
    }
  }

  // A contour ends at its first point without saying so; one without an area is none.
  void Close() {
    if (contours_.empty()) return;
    Contour& contour = contours_.back();
    while (contour.size() > 1 && contour.back() == contour.front()) contour.pop_back();
    LeaveOutMiddles(contour);
    if (contour.size() < 3) contours_.pop_back();
  }

  // A point in the middle of two controls is understood.
  static void LeaveOutMiddles(Contour& contour) {
    Contour kept;
    for (std::size_t i = 0; i < contour.size(); ++i) {
      const Point& point = contour[i];
      const Point& before = contour[(i + contour.size() - 1) % contour.size()];
      const Point& behind = contour[(i + 1) % contour.size()];
      const bool isMiddle = i > 0 && point.isOnCurve && !before.isOnCurve && !behind.isOnCurve &&
                            before.x + behind.x == 2 * point.x &&
                            before.y + behind.y == 2 * point.y;
      if (!isMiddle) kept.push_back(point);
    }
    contour = std::move(kept);
  }

  std::vector<Contour> contours_;
  QPointF at_;
};

struct Extent {
  int left = 0;
  int bottom = 0;
  int right = 0;
  int top = 0;
};

Extent ExtentOf(const std::vector<Contour>& contours) {
  if (contours.empty()) return {};
  const Point& first = contours.front().front();
  Extent extent{first.x, first.y, first.x, first.y};
  for (const Contour& contour : contours) {
    for (const Point& point : contour) {
      extent = {std::min(extent.left, point.x), std::min(extent.bottom, point.y),
                std::max(extent.right, point.x), std::max(extent.top, point.y)};
    }
  }
  return extent;
}

// A coordinate as the distance from the one before. `isShort` and `isSameOrPositive` are the flags
// that tell how it is written.
void AppendDistance(std::string& bytes, int distance, int isShort, int isSameOrPositive,
                    int& flags) {
  if (distance == 0) {
    flags |= isSameOrPositive;
  } else if (std::abs(distance) < 256) {
    flags |= isShort | (distance > 0 ? isSameOrPositive : 0);
    bytes += static_cast<char>(std::abs(distance));
  } else {
    Append16(bytes, distance);
  }
}

// A glyph's entry in the table of outlines; empty for one that shows nothing.
std::string GlyphEntry(const std::vector<Contour>& contours, const Extent& extent) {
  if (contours.empty()) return {};
  std::string entry;
  Append16(entry, static_cast<int>(contours.size()));
  for (const int side : {extent.left, extent.bottom, extent.right, extent.top}) {
    Append16(entry, side);
  }
  std::string flagBytes;
  std::string xs;
  std::string ys;
  int points = 0;
  Point last;
  for (const Contour& contour : contours) {
    points += static_cast<int>(contour.size());
    Append16(entry, points - 1);
    for (const Point& point : contour) {
      int flags = point.isOnCurve ? 1 : 0;
      AppendDistance(xs, point.x - last.x, 2, 16, flags);
      AppendDistance(ys, point.y - last.y, 4, 32, flags);
      flagBytes += static_cast<char>(flags);
      last = point;
    }
  }
  Append16(entry, 0);  // no instructions
  entry += flagBytes + xs + ys;
  entry.append((4 - entry.size() % 4) % 4, '\0');
  return entry;
}

struct Table {
  std::string_view tag;
  std::string bytes;
};

std::uint32_t Checksum(const std::string& padded) {
  std::uint32_t sum = 0;
  for (std::size_t i = 0; i + 3 < padded.size(); i += 4) {
    for (std::size_t j = 0; j < 4; ++j) {
      sum += static_cast<std::uint32_t>(static_cast<unsigned char>(padded[i + j])) << (24 - 8 * j);
    }
  }
  return sum;
}

// The tables, in the order of their tags, behind a list of them.
std::string FontOf(std::vector<Table> tables) {
  const auto count = static_cast<int>(tables.size());
  int power = 1;
  int exponent = 0;
  for (; power * 2 <= count; power *= 2) ++exponent;
  std::string font;
  Append32(font, 0x00010000);
  for (const int number : {count, power * 16, exponent, (count - power) * 16}) {
    Append16(font, number);
  }
  auto offset = static_cast<std::uint32_t>(font.size() + 16 * tables.size());
  std::string bodies;
  for (Table& table : tables) {
    const auto size = static_cast<std::uint32_t>(table.bytes.size());
    table.bytes.append((4 - table.bytes.size() % 4) % 4, '\0');
    font += table.tag;
    Append32(font, Checksum(table.bytes));
    Append32(font, offset);
    Append32(font, size);
    offset += static_cast<std::uint32_t>(table.bytes.size());
    bodies += table.bytes;
  }
  return font + bodies;
}

}  // namespace

std::string TrueTypeFont(const std::vector<TrueTypeGlyph>& glyphs, double ascent, double descent) {
  std::string outlines;
  std::string places;
  std::string widths;
  Extent all;
  std::size_t mostPoints = 0;
  std::size_t mostContours = 0;
  int widest = 0;
  for (const TrueTypeGlyph& glyph : glyphs) {
    const Contours contours(glyph.outline);
    const Extent extent = ExtentOf(contours.All());
    std::size_t points = 0;
    for (const Contour& contour : contours.All()) points += contour.size();
    mostPoints = std::max(mostPoints, points);
    mostContours = std::max(mostContours, contours.All().size());
    all = {std::min(all.left, extent.left), std::min(all.bottom, extent.bottom),
           std::max(all.right, extent.right), std::max(all.top, extent.top)};
    Append32(places, static_cast<std::uint32_t>(outlines.size()));
    outlines += GlyphEntry(contours.All(), extent);
    widest = std::max(widest, Rounded(glyph.advance));
    Append16(widths, Rounded(glyph.advance));
    Append16(widths, extent.left);
  }
  Append32(places, static_cast<std::uint32_t>(outlines.size()));

  const auto count = static_cast<int>(glyphs.size());
  std::string head;
  Append32(head, 0x00010000);  // the table's version
  Append32(head, 0x00010000);  // the font's
  Append32(head, 0);           // a checksum that nobody asks of an embedded font
  Append32(head, 0x5F0F3CF5);
  Append16(head, 0);
  Append16(head, kTrueTypeEm);
  head.append(16, '\0');  // made and changed
  for (const int side : {all.left, all.bottom, all.right, all.top}) Append16(head, side);
  for (const int number : {0, 3, 2, 1, 0}) Append16(head, number);  // places of 32 bits

  std::string horizontal;
  Append32(horizontal, 0x00010000);
  for (const int number : {Rounded(ascent), -Rounded(descent), 0, widest, all.left, 0, all.right, 1,
                           0, 0, 0, 0, 0, 0, 0, count}) {
    Append16(horizontal, number);
  }

  std::string most;
  Append32(most, 0x00010000);
  for (const int number : {count, static_cast<int>(mostPoints), static_cast<int>(mostContours), 0,
                           0, 1, 0, 0, 0, 0, 0, 0, 0, 0}) {
    Append16(most, number);
  }
  return FontOf({{"glyf", std::move(outlines)},
                 {"head", std::move(head)},
                 {"hhea", std::move(horizontal)},
                 {"hmtx", std::move(widths)},
                 {"loca", std::move(places)},
                 {"maxp", std::move(most)}});
}

}  // namespace td
