// A printed PDF, read back by independent programs (poppler).
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "sample_format.h"

namespace td {

struct PrintedWord {
  std::string text;
  Area area;  // twips
};

struct PrintedPage {
  double width = 0;  // twips
  double height = 0;
  std::vector<PrintedWord> words;
};

std::vector<PrintedPage> ReadPages(const std::filesystem::path& pdf);

// One line for each font: everything that the listing says about it.
std::vector<std::string> ReadFonts(const std::filesystem::path& pdf);

// A page as grey dots, ten to the millimetre, 0 black to 255 white.
class PageImage {
 public:
  // `page` counts from 1.
  PageImage(const std::filesystem::path& pdf, std::size_t page);
  // The darkest dot within `reach` dots around a place in twips.
  [[nodiscard]] int DarkestNear(double x, double y, int reach) const;
  // The share of dots that are not white.
  [[nodiscard]] double Ink(const Area& area) const;

 private:
  [[nodiscard]] int At(int column, int row) const;

  int width_ = 0;
  int height_ = 0;
  std::vector<unsigned char> dots_;
};

}  // namespace td
