// Where everything of a print should stand: counted rows, plain sums of the items' places.
#pragma once

#include <string>
#include <vector>

#include "expected_values.h"
#include "sample_format.h"

namespace td {

struct PlacedText {
  std::string text;
  SampleItem item;
  Area area;  // on the page
};

struct PlacedLine {
  Area area;  // without width or without height
  double thickness = 0;
};

struct PlacedImage {
  Area area;
  std::string shows;  // the name in angle brackets
  SampleRow row;
};

struct ExpectedPage {
  std::vector<PlacedText> texts;
  std::vector<PlacedLine> lines;
  std::vector<PlacedLine> leftOut;  // lines that are on the pre-printed form already
  std::vector<PlacedImage> images;
};

// How the print is called for.
struct PrintWay {
  bool onlyVariables = false;
  std::size_t blankRows = 0;  // fewer than the rows of a page
  bool byArea = false;
};

std::vector<ExpectedPage> ExpectPages(const SampleFormat& format,
                                      const std::vector<SampleRow>& rows, const PrintWay& way);

}  // namespace td
