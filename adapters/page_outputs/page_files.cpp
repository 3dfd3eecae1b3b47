#include "page_outputs/page_files.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstddef>

#include "files/file_error.h"
#include "files/output_file.h"
#include "files/path_text.h"
#include "page_outputs/written_file.h"
#include "platform/standard_failures.h"

namespace td {
namespace {

constexpr double kMaxPixels = 400e6;

int PixelsFor(double twips, double dotsPerInch) {
  return std::max(1, static_cast<int>(std::lround(twips / kTwipsPerInch * dotsPerInch)));
}

std::string PagePath(const std::string& folder, std::size_t number) {
  const std::string digits = std::to_string(number);
  const std::string zeros(digits.size() < 3 ? 3 - digits.size() : 0, '0');
  return TextOf(PathOf(folder) / ("page-" + zeros + digits + ".png"));
}

void MakeFolder(const std::string& folder) {
  try {
    MakeOutputFolder(folder);
  } catch (const FileError& error) {
    const bool isTaken = error.Number() == ENOTDIR;
    throw Failure(kPathNotFound,
                  WithoutLockCharacter("无法建立文件夹“" + folder + "”：" +
                                       (isTaken ? "这不是一个文件夹" : error.what()) + "。"));
  }
}

}  // namespace

PictureSides PictureSidesOf(const Page& page, double dotsPerInch) {
  if (!(dotsPerInch >= 1 && dotsPerInch <= 2400)) {
    throw Failure(kInvalidCall, "分辨率必须在 1 到 2400 之间");
  }
  const PictureSides sides{PixelsFor(page.width, dotsPerInch), PixelsFor(page.height, dotsPerInch)};
  if (static_cast<double>(sides.width) * sides.height > kMaxPixels) throw TooLargePicture();
  return sides;
}

Failure TooLargePicture() {
  return {kOutOfMemory, "页面图像太大，请降低分辨率"};
}

std::vector<std::string> WritePageFiles(const std::vector<Page>& pages, const std::string& folder,
                                        const std::function<Bytes(const Page& page)>& png) {
  RequirePages(pages.size());
  const std::string place = folder.empty() ? "." : folder;
  MakeFolder(place);
  std::vector<std::string> paths;
  for (const Page& page : pages) {
    paths.push_back(PagePath(place, paths.size() + 1));
    const Bytes bytes = png(page);
    WriteFile(paths.back(), WriterOf({reinterpret_cast<const char*>(bytes.data()), bytes.size()}));
  }
  // What an earlier and longer document left.
  for (std::size_t next = paths.size() + 1; RemoveOutput(PagePath(place, next)); ++next) {
  }
  return paths;
}

}  // namespace td
