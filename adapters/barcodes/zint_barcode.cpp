#include "barcodes/zint_barcode.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>
#include <string_view>
#include <vector>

#include "barcodes/code_symbol.h"
#include "page_document/pictures.h"

namespace td {
namespace {

constexpr double kExtentWidth = 52.12 * kTwipsPerMillimetre;
constexpr double kExtentHeight = 12.96 * kTwipsPerMillimetre;
constexpr double kTextPoints = 14.25;
constexpr double kTextHeight = kTextPoints * kTwipsPerPoint;
constexpr double kTextGap = 0.5 * kTwipsPerMillimetre;

Colour ColourOf(std::uint32_t rgb) {
  return {static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8),
          static_cast<std::uint8_t>(rgb)};
}

// What a byte of UTF-8 adds at most to the width of its line. No metrics are at hand here, so it
// reckons with the widest of the fonts that stand in for 宋体.
double EmsOf(char unit) {
  const auto byte = static_cast<unsigned char>(unit);
  if (byte >= 0x80) return byte >= 0xC0 ? 1 : 0;  // a character's first byte counts for it
  if (std::string_view("%@MWmw").find(unit) != std::string_view::npos) return 1.05;
  if ((unit >= 'A' && unit <= 'Z') || unit == '&') return 0.85;
  return unit >= 'a' && unit <= 'z' ? 0.7 : 0.6;
}

double EmsOf(const std::string& text) {
  return std::accumulate(text.begin(), text.end(), 0.0,
                         [](double ems, char unit) { return ems + EmsOf(unit); });
}

// The text in lines of at most `width` ems, or of one character where that is wider.
std::vector<std::string> Broken(const std::string& text, double width) {
  std::vector<std::string> lines;
  double ems = 0;
  for (const char unit : text) {
    const double more = EmsOf(unit);
    if (lines.empty() || (more > 0 && ems + more > width)) {
      lines.emplace_back();
      ems = 0;
    }
    lines.back() += unit;
    ems += more;
  }
  return lines;
}

// The text below the bars, smaller where it is wider than they are.
std::vector<VectorPicture::Text> LineBelow(const std::string& text, const PictureSize& extent,
                                           const Colour& colour) {
  const double points = std::min(kTextPoints, extent.width / kTwipsPerPoint / EmsOf(text));
  return {{text,
           {"宋体", points},
           TextAlignment::kCentre,
           0,
           extent.height - kTextHeight,
           extent.width,
           kTextHeight,
           colour}};
}

// The text in the place of bars that there are none of: in as many lines as let it stand largest.
std::vector<VectorPicture::Text> LinesAlone(const std::string& text, const PictureSize& extent,
                                            const Colour& colour) {
  if (text.empty()) return {};
  constexpr double kLineStep = 1.2;  // of the font's size
  constexpr double kSmaller = 0.97;
  const double area = extent.width * extent.height / (kTwipsPerPoint * kTwipsPerPoint);
  double points = std::min(kTextPoints, std::sqrt(area / kLineStep / EmsOf(text)));
  std::vector<std::string> lines;
  double step = 0;
  for (;; points *= kSmaller) {
    lines = Broken(text, extent.width / kTwipsPerPoint / points);
    step = points * kTwipsPerPoint * kLineStep;
    if (static_cast<double>(lines.size()) * step <= extent.height) break;
  }
  std::vector<VectorPicture::Text> texts;
  double top = (extent.height - static_cast<double>(lines.size()) * step) / 2;
  for (std::string& line : lines) {
    texts.push_back({std::move(line),
                     {"宋体", points},
                     TextAlignment::kCentre,
                     0,
                     top,
                     extent.width,
                     step,
                     colour});
    top += step;
  }
  return texts;
}

}  // namespace

PictureRef ZintBarcode::GetPicture() {
  const CodeSymbol symbol = EncodeSymbol(settings_.symbology, data_);
  const Colour colour = ColourOf(settings_.barColour);
  const PictureSize extent = {symbol.square ? kExtentHeight : kExtentWidth, kExtentHeight};
  std::vector<VectorPicture::Rectangle> rectangles;
  if (settings_.background) {
    rectangles.push_back({0, 0, extent.width, extent.height, ColourOf(*settings_.background)});
  }
  if (!symbol.refusal.empty()) {
    if (complain_) complain_(symbol.refusal);
    return std::make_shared<VectorPicture>(extent, std::move(rectangles),
                                           LinesAlone(symbol.text, extent, colour));
  }

  const bool hasText = settings_.showText && !symbol.text.empty();
  const double barsHeight = hasText ? kExtentHeight - kTextHeight - kTextGap : kExtentHeight;
  const double scaleX = extent.width / symbol.width;
  const double scaleY = barsHeight / symbol.height;
  for (const CodeBar& bar : symbol.bars) {
    rectangles.push_back(
        {bar.left * scaleX, bar.top * scaleY, bar.width * scaleX, bar.height * scaleY, colour});
  }
  return std::make_shared<VectorPicture>(
      extent, std::move(rectangles),
      hasText ? LineBelow(symbol.text, extent, colour) : std::vector<VectorPicture::Text>());
}

}  // namespace td
