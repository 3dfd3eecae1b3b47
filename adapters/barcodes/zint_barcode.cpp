#include "barcodes/zint_barcode.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "barcodes/code_symbol.h"
#include "page_document/pictures.h"

namespace td {
namespace {

constexpr double kExtentWidth = 52.12 * kTwipsPerMillimetre;
constexpr double kExtentHeight = 12.96 * kTwipsPerMillimetre;
constexpr double kTextPoints = 14.25;
constexpr double kTextGap = 0.5 * kTwipsPerMillimetre;

Colour ColourOf(std::uint32_t rgb) {
  return {static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8),
          static_cast<std::uint8_t>(rgb)};
}

// The font size at which the text surely fits into the width. No metrics are at hand here, so it
// reckons with the widest of the fonts that stand in for 宋体: letters of 0.6 em, others of 1 em.
double FittingPoints(const std::string& text, double width) {
  double ems = 0;
  for (const char unit : text) {
    const auto byte = static_cast<unsigned char>(unit);
    if (byte < 0x80) ems += 0.6;
    if (byte >= 0xC0) ems += 1;
  }
  return std::min(kTextPoints, width / kTwipsPerPoint / ems);
}

}  // namespace

PictureRef ZintBarcode::GetPicture() {
  const CodeSymbol symbol = EncodeSymbol(settings_.symbology, data_);
  const bool hasText = settings_.showText && !symbol.text.empty();
  const Colour colour = ColourOf(settings_.barColour);
  const PictureSize extent = {symbol.square ? kExtentHeight : kExtentWidth, kExtentHeight};
  const double textHeight = kTextPoints * kTwipsPerPoint;
  const double barsHeight = hasText ? kExtentHeight - textHeight - kTextGap : kExtentHeight;

  std::vector<VectorPicture::Rectangle> rectangles;
  if (settings_.background) {
    rectangles.push_back({0, 0, extent.width, extent.height, ColourOf(*settings_.background)});
  }
  const double scaleX = extent.width / symbol.width;
  const double scaleY = barsHeight / symbol.height;
  for (const CodeBar& bar : symbol.bars) {
    rectangles.push_back(
        {bar.left * scaleX, bar.top * scaleY, bar.width * scaleX, bar.height * scaleY, colour});
  }

  std::vector<VectorPicture::Text> texts;
  if (hasText) {
    const TextFont font{"宋体", FittingPoints(symbol.text, extent.width)};
    texts.push_back({symbol.text, font, TextAlignment::kCentre, 0, extent.height - textHeight,
                     extent.width, textHeight, colour});
  }
  return std::make_shared<VectorPicture>(extent, std::move(rectangles), std::move(texts));
}

}  // namespace td
