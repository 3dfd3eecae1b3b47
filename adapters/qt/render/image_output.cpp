#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <cmath>

#include "page_outputs/page_files.h"
#include "render/outputs.h"
#include "render/page_painter.h"
#include "render/picture_images.h"

namespace td {
namespace {

constexpr double kInchesPerMetre = 1 / 0.0254;

}  // namespace

QImage RenderPage(const Page& page, double dotsPerInch) {
  const PictureSides sides = PictureSidesOf(page, dotsPerInch);
  QImage image(sides.width, sides.height, QImage::Format_RGB32);
  if (image.isNull()) throw TooLargePicture();
  image.fill(Qt::white);
  image.setDotsPerMeterX(static_cast<int>(std::lround(dotsPerInch * kInchesPerMetre)));
  image.setDotsPerMeterY(static_cast<int>(std::lround(dotsPerInch * kInchesPerMetre)));
  QPainter painter(&image);
  painter.scale(dotsPerInch / kTwipsPerInch, dotsPerInch / kTwipsPerInch);
  DrawPage(painter, page);
  return image;
}

std::vector<std::string> WritePngPages(const std::vector<Page>& pages, const std::string& folder,
                                       double dotsPerInch) {
  return WritePageFiles(pages, folder,
                        [=](const Page& page) { return PngOf(RenderPage(page, dotsPerInch)); });
}

}  // namespace td
