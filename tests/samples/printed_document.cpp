#include "printed_document.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <memory>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace td {
namespace {

constexpr double kTwipsPerPoint = 20;
constexpr double kTwipsPerDot = 1440 / 254.0;

struct ClosePipe {
  void operator()(FILE* pipe) const { pclose(pipe); }
};

std::string OutputOf(const std::string& command) {
  const std::unique_ptr<FILE, ClosePipe> pipe(popen(command.c_str(), "r"));
  if (!pipe) throw std::runtime_error(command);
  std::string output;
  std::array<char, 65536> part;
  for (std::size_t size = 0; (size = fread(part.data(), 1, part.size(), pipe.get())) > 0;) {
    output.append(part.data(), size);
  }
  return output;
}

std::string Quoted(const std::filesystem::path& path) {
  return "'" + path.string() + "'";
}

std::string WithoutEntities(std::string text) {
  const std::array<std::pair<std::string, std::string>, 5> entities = {
      {{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&apos;", "'"}, {"&amp;", "&"}}};
  for (const auto& [entity, letter] : entities) {
    for (std::size_t at = text.find(entity); at != std::string::npos; at = text.find(entity, at)) {
      text.replace(at, entity.size(), letter);
      at += letter.size();
    }
  }
  return text;
}

double Twips(const std::string& points) {
  return std::stod(points) * kTwipsPerPoint;
}

}  // namespace

std::vector<PrintedPage> ReadPages(const std::filesystem::path& pdf) {
  static const std::regex pageLine("<page width=\"([0-9.]+)\" height=\"([0-9.]+)\">");
  static const std::regex wordLine(
      "<word xMin=\"([-0-9.]+)\" yMin=\"([-0-9.]+)\" xMax=\"([-0-9.]+)\" yMax=\"([-0-9.]+)\">(.*)"
      "</word>");
  std::vector<PrintedPage> pages;
  std::istringstream lines(OutputOf("pdftotext -bbox " + Quoted(pdf) + " -"));
  std::smatch match;
  for (std::string line; std::getline(lines, line);) {
    if (std::regex_search(line, match, pageLine)) {
      pages.push_back({Twips(match[1]), Twips(match[2]), {}});
    } else if (std::regex_search(line, match, wordLine) && !pages.empty()) {
      const double left = Twips(match[1]);
      const double top = Twips(match[2]);
      pages.back().words.push_back(
          {WithoutEntities(match[5]), {left, top, Twips(match[3]) - left, Twips(match[4]) - top}});
    }
  }
  return pages;
}

std::vector<std::string> ReadFonts(const std::filesystem::path& pdf) {
  std::istringstream lines(OutputOf("pdffonts " + Quoted(pdf)));
  std::string line;
  std::getline(lines, line);  // headings
  std::getline(lines, line);
  std::vector<std::string> fonts;
  while (std::getline(lines, line)) fonts.push_back(line);
  return fonts;
}

std::vector<PrintedPicture> ReadPictures(const std::filesystem::path& pdf) {
  std::istringstream lines(OutputOf("pdfimages -list " + Quoted(pdf)));
  std::string line;
  std::getline(lines, line);  // headings
  std::getline(lines, line);
  std::vector<PrintedPicture> pictures;
  while (std::getline(lines, line)) {
    std::istringstream columns(line);
    std::string page, number, kind, colours, components, bits, coding, smooth, object, generation;
    PrintedPicture picture;
    columns >> page >> number >> kind >> picture.width >> picture.height >> colours >> components >>
        bits >> coding >> smooth >> object >> generation >> picture.dotsPerInch;
    if (columns && kind == "image") pictures.push_back(picture);
  }
  return pictures;
}

std::string ReadBarcode(const std::filesystem::path& pdf, std::size_t page, const Area& area) {
  constexpr int kDotsPerInch = 300;
  const auto dots = [](double twips) {
    return std::to_string(std::lround(twips * kDotsPerInch / 1440));
  };
  const std::string number = std::to_string(page);
  std::string text = OutputOf("pdftoppm -r " + std::to_string(kDotsPerInch) + " -png -f " + number +
                              " -l " + number + " -x " + dots(area.left) + " -y " + dots(area.top) +
                              " -W " + dots(area.width) + " -H " + dots(area.height) + " " +
                              Quoted(pdf) + " | zbarimg --nodbus --quiet --raw -");
  while (!text.empty() && text.back() == '\n') text.pop_back();
  return text;
}

PageImage::PageImage(const std::filesystem::path& pdf, std::size_t page) {
  const std::string number = std::to_string(page);
  const std::string image =
      OutputOf("pdftoppm -r 254 -gray -f " + number + " -l " + number + " " + Quoted(pdf));
  std::istringstream head(image.substr(0, 40));
  std::string kind;
  int depth = 0;
  head >> kind >> width_ >> height_ >> depth;
  const auto size = static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_);
  if (!head || kind != "P5" || image.size() < size) throw std::runtime_error("no image of a page");
  dots_.assign(image.end() - static_cast<std::ptrdiff_t>(size), image.end());
}

int PageImage::At(int column, int row) const {
  if (column < 0 || row < 0 || column >= width_ || row >= height_) return 255;
  return dots_[static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) +
               static_cast<std::size_t>(column)];
}

int PageImage::DarkestNear(double x, double y, int reach) const {
  const int column = static_cast<int>(std::floor(x / kTwipsPerDot));
  const int row = static_cast<int>(std::floor(y / kTwipsPerDot));
  int darkest = 255;
  for (int dy = -reach; dy <= reach; ++dy) {
    for (int dx = -reach; dx <= reach; ++dx) darkest = std::min(darkest, At(column + dx, row + dy));
  }
  return darkest;
}

double PageImage::Ink(const Area& area) const {
  const int left = static_cast<int>(std::ceil(area.left / kTwipsPerDot));
  const int right = static_cast<int>(std::floor(area.Right() / kTwipsPerDot));
  const int top = static_cast<int>(std::ceil(area.top / kTwipsPerDot));
  const int bottom = static_cast<int>(std::floor(area.Bottom() / kTwipsPerDot));
  int inked = 0;
  for (int row = top; row < bottom; ++row) {
    for (int column = left; column < right; ++column) inked += At(column, row) < 250 ? 1 : 0;
  }
  return static_cast<double>(inked) / ((right - left) * (bottom - top));
}

}  // namespace td
