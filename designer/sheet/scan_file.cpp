#include "designer/sheet/scan_file.h"

#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QPdfDocument>

#include "designer/view/words.h"
#include "platform/failure.h"

namespace td::designer {
namespace {

constexpr double kPdfDotsPerInch = 300;
constexpr int kMostMegabytes = 1024;  // of a picture's pixels: a sheet of A3 at 600 dots an inch

Failure Unreadable(const std::string& path, const QString& reason) {
  return {kDeviceIo, (QString::fromStdString(path) + QStringLiteral(": ") + reason).toStdString()};
}

bool IsPdf(const std::string& path) {
  QFile file(QString::fromStdString(path));
  return file.open(QIODevice::ReadOnly) && file.read(5) == "%PDF-";
}

void Load(QPdfDocument& document, const std::string& path) {
  if (document.load(QString::fromStdString(path)) != QPdfDocument::Error::None) {
    throw Unreadable(path, Say("the file can't be read as PDF"));
  }
}

QImage ReadPdfPage(const std::string& path, int page) {
  QPdfDocument document;
  Load(document, path);
  const QSizeF points = document.pagePointSize(page - 1);
  const QSize pixels = (points * (kPdfDotsPerInch / 72)).toSize();
  QImage drawn = document.render(page - 1, pixels);
  if (drawn.isNull()) throw Unreadable(path, Say("the file has no such page"));
  // What the page leaves free is paper.
  QImage image(drawn.size(), QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter(&image).drawImage(0, 0, drawn);
  image.setDotsPerMeterX(qRound(pixels.width() / points.width() * 72 / 0.0254));
  image.setDotsPerMeterY(qRound(pixels.height() / points.height() * 72 / 0.0254));
  return image;
}

}  // namespace

int PagesOfScan(const std::string& path) {
  if (!IsPdf(path)) return 1;
  QPdfDocument document;
  Load(document, path);
  return document.pageCount();
}

QImage ReadScan(const std::string& path, int page) {
  if (IsPdf(path)) return ReadPdfPage(path, page);
  QImageReader::setAllocationLimit(kMostMegabytes);
  QImageReader reader(QString::fromStdString(path));
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QImage image = reader.read();
  if (image.isNull()) throw Unreadable(path, reader.errorString());
  return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                       : QImage::Format_RGB32);
}

}  // namespace td::designer
