// The kinds of pictures that a page can hold. Both are immutable after they were made, so that any
// number of pages can share one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "page_document/drawing.h"
#include "platform/pictures.h"

namespace td {

struct PictureSize {
  double width = 0;  // twips
  double height = 0;
};

// A picture file as it is stored. Outputs decode it when they draw it, so that the file is the only
// copy that stays in memory.
class ImagePicture : public Picture {
 public:
  // `encoded` is a whole picture file that has been found to decode (JPEG, PNG, BMP, GIF, TIFF) to
  // `widthPixels` by `heightPixels`, both above 0. The resolutions are dots per inch; what is not
  // above 0 counts as 96.
  ImagePicture(Bytes encoded, int widthPixels, int heightPixels, double dotsPerInchX = 96,
               double dotsPerInchY = 96)
      : encoded_(std::move(encoded)),
        widthPixels_(widthPixels),
        heightPixels_(heightPixels),
        dotsPerInchX_(dotsPerInchX > 0 ? dotsPerInchX : 96),
        dotsPerInchY_(dotsPerInchY > 0 ? dotsPerInchY : 96) {}

  [[nodiscard]] const Bytes& Encoded() const { return encoded_; }
  [[nodiscard]] int WidthPixels() const { return widthPixels_; }
  [[nodiscard]] int HeightPixels() const { return heightPixels_; }
  [[nodiscard]] PictureSize NaturalSize() const {
    return {widthPixels_ / dotsPerInchX_ * kTwipsPerInch,
            heightPixels_ / dotsPerInchY_ * kTwipsPerInch};
  }

 private:
  Bytes encoded_;
  int widthPixels_;
  int heightPixels_;
  double dotsPerInchX_;
  double dotsPerInchY_;
};

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Colour&) const = default;
};

// A picture of filled rectangles and lines of text, sharp at any size. Lengths are twips in the
// picture's own space, from (0, 0) to its extent; drawn into a box, both axes are scaled
// independently, the letters of the texts included.
class VectorPicture : public Picture {
 public:
  struct Rectangle {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    Colour colour;
  };
  // One line of text, centred vertically in its box.
  struct Text {
    std::string text;
    TextFont font;
    TextAlignment alignment = TextAlignment::kCentre;
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    Colour colour;
  };

  // The extent's sides are above 0. Rectangles are drawn in their order, then the texts.
  VectorPicture(PictureSize extent, std::vector<Rectangle> rectangles, std::vector<Text> texts)
      : extent_(extent), rectangles_(std::move(rectangles)), texts_(std::move(texts)) {}

  [[nodiscard]] PictureSize NaturalSize() const { return extent_; }
  [[nodiscard]] const std::vector<Rectangle>& Rectangles() const { return rectangles_; }
  [[nodiscard]] const std::vector<Text>& Texts() const { return texts_; }

 private:
  PictureSize extent_;
  std::vector<Rectangle> rectangles_;
  std::vector<Text> texts_;
};

// The size of either kind. Another kind, which no output can draw, fails with kInvalidPicture.
[[nodiscard]] PictureSize NaturalSize(const Picture& picture);

}  // namespace td
