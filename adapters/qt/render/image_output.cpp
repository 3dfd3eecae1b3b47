#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "files/file_error.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "render/outputs.h"
#include "render/page_painter.h"
#include "render/written_file.h"

namespace td {
namespace {

constexpr double kMaxPixels = 400e6;
constexpr double kInchesPerMetre = 1 / 0.0254;

int Pixels(double twips, double dotsPerInch) {
  return std::max(1, static_cast<int>(std::lround(twips / kTwipsPerInch * dotsPerInch)));
}

std::string PagePath(const QDir& folder, std::size_t number) {
  return folder.filePath(QString("page-%1.png").arg(number, 3, 10, QChar('0'))).toStdString();
}

// What an earlier and longer document left. Anything but a file was put there by somebody else.
void RemovePagesFrom(const QDir& folder, std::size_t number) {
  std::error_code error;
  for (;; ++number) {
    const std::filesystem::path page = PagePath(folder, number);
    if (!std::filesystem::is_regular_file(std::filesystem::symlink_status(page, error))) return;
    if (!std::filesystem::remove(page, error)) return;
  }
}

void MakeFolder(const std::string& path) {
  std::error_code error;
  std::filesystem::create_directory(path, error);
  if (!error) return;
  const std::string reason =
      error == std::errc::file_exists ? "这不是一个文件夹" : ReasonOf(error.value());
  throw Failure(kPathNotFound,
                WithoutLockCharacter("无法建立文件夹“" + path + "”：" + reason + "。"));
}

}  // namespace

QImage RenderPage(const Page& page, double dotsPerInch) {
  if (!(dotsPerInch >= 1 && dotsPerInch <= 2400)) {
    throw Failure(kInvalidCall, "分辨率必须在 1 到 2400 之间");
  }
  const QSize size(Pixels(page.width, dotsPerInch), Pixels(page.height, dotsPerInch));
  const double pixels = static_cast<double>(size.width()) * size.height();
  QImage image = pixels <= kMaxPixels ? QImage(size, QImage::Format_RGB32) : QImage();
  if (image.isNull()) throw Failure(kOutOfMemory, "页面图像太大，请降低分辨率");
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
  RequirePages(pages.size());
  const QDir directory(QString::fromStdString(folder));
  MakeFolder(directory.path().toStdString());
  std::vector<std::string> paths;
  for (const Page& page : pages) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    RenderPage(page, dotsPerInch).save(&buffer, "PNG");
    paths.push_back(PagePath(directory, paths.size() + 1));
    WriteFile(paths.back(),
              WriterOf(std::string_view(png.constData(), static_cast<std::size_t>(png.size()))));
  }
  RemovePagesFrom(directory, paths.size() + 1);
  return paths;
}

}  // namespace td
