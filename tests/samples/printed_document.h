// A printed PDF, read back by independent programs (poppler, zbar).
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

// A picture of dots, as it is placed on a page.
struct PrintedPicture {
  int width = 0;  // dots
  int height = 0;
  double dotsPerInch = 0;  // across, as printed
};

// All placed pictures, page by page.
std::vector<PrintedPicture> ReadPictures(const std::filesystem::path& pdf);

// What an independent reader of barcodes (zbar) decodes in an area of a page, in twips; empty if
// that is nothing. `page` counts from 1.
std::string ReadBarcode(const std::filesystem::path& pdf, std::size_t page, const Area& area);

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
