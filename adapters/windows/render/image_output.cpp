#include "windows/render/image_output.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "files/file_error.h"
#include "files/output_file.h"
#include "files/path_text.h"
#include "files/windows_files.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "windows/render/page_painter.h"
#include "windows/render/screen_device.h"

namespace td {
namespace {

constexpr double kMaxPixels = 400e6;

int PixelsFor(double twips, double dotsPerInch) {
  return std::max(1, static_cast<int>(std::lround(twips / kTwipsPerInch * dotsPerInch)));
}

std::filesystem::path PagePath(const std::filesystem::path& folder, std::size_t number) {
  const std::string digits = std::to_string(number);
  const std::string zeros(digits.size() < 3 ? 3 - digits.size() : 0, '0');
  return folder / ("page-" + zeros + digits + ".png");
}

// What an earlier and longer document left. Anything but a file was put there by somebody else.
void RemovePagesFrom(const std::filesystem::path& folder, std::size_t number) {
  std::error_code error;
  for (;; ++number) {
    const std::filesystem::path page = PagePath(folder, number);
    if (!std::filesystem::is_regular_file(page, error)) return;
    if (!std::filesystem::remove(page, error)) return;
  }
}

void MakeFolder(const std::filesystem::path& folder) {
  if (CreateDirectoryW(SystemPath(folder).c_str(), nullptr) != FALSE) return;
  std::error_code error;
  if (std::filesystem::is_directory(folder, error)) return;
  const FileError reason = LastFileError();
  throw Failure(kPathNotFound, WithoutLockCharacter("无法建立文件夹“" + TextOf(folder) + "”：" +
                                                    reason.what() + "。"));
}

void WriteFileOf(const std::filesystem::path& path, const Bytes& bytes) {
  try {
    WriteOutput(TextOf(path),
                WriterOf({reinterpret_cast<const char*>(bytes.data()), bytes.size()}));
  } catch (const FileError& error) {
    throw Failure(kDeviceIo, WithoutLockCharacter("无法写入文件“" + TextOf(path) + "”：" +
                                                  error.what() + "。"));
  }
}

}  // namespace

Pixels RenderPage(const Page& page, double dotsPerInch) {
  if (!(dotsPerInch >= 1 && dotsPerInch <= 2400)) {
    throw Failure(kInvalidCall, "分辨率必须在 1 到 2400 之间");
  }
  const int width = PixelsFor(page.width, dotsPerInch);
  const int height = PixelsFor(page.height, dotsPerInch);
  const Failure tooLarge(kOutOfMemory, "页面图像太大，请降低分辨率");
  if (static_cast<double>(width) * height > kMaxPixels) throw tooLarge;

  const BITMAPINFO info = RowsFromTheTop(width, height);
  void* bits = nullptr;
  const DeviceOwner device(CreateCompatibleDC(nullptr));
  const BitmapOwner bitmap(
      CreateDIBSection(device.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!bitmap) throw tooLarge;
  const Selected selected(device.get(), bitmap.get());
  PatBlt(device.get(), 0, 0, width, height, WHITENESS);
  const double scale = dotsPerInch / kTwipsPerInch;
  DrawPage(device.get(), {.scaleX = scale, .scaleY = scale}, page);
  GdiFlush();
  const auto* first = static_cast<const std::uint32_t*>(bits);
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  Pixels pixels{width, height, {first, first + count}};
  // What has drawn cares for colours alone.
  for (std::uint32_t& pixel : pixels.data) pixel |= 0xFF000000;
  return pixels;
}

std::vector<std::string> WritePngPages(const std::vector<Page>& pages, const std::string& folder,
                                       double dotsPerInch) {
  if (pages.empty()) throw Failure(kInvalidCall, "文档中没有页");
  const std::filesystem::path path = PathOf(folder);
  MakeFolder(path);
  std::vector<std::string> paths;
  for (const Page& page : pages) {
    const std::filesystem::path file = PagePath(path, paths.size() + 1);
    WriteFileOf(file, ToPng(RenderPage(page, dotsPerInch), dotsPerInch));
    paths.push_back(TextOf(file));
  }
  RemovePagesFrom(path, paths.size() + 1);
  return paths;
}

}  // namespace td
