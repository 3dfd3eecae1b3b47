#include "windows/render/image_output.h"

#include <cstddef>
#include <cstdint>

#include "page_outputs/document_files.h"
#include "page_outputs/page_files.h"
#include "windows/render/page_painter.h"
#include "windows/render/screen_device.h"

namespace td {

Pixels RenderPage(const Page& page, double dotsPerInch) {
  const auto [width, height] = PictureSidesOf(page, dotsPerInch);
  const BITMAPINFO info = RowsFromTheTop(width, height);
  void* bits = nullptr;
  const DeviceOwner device(CreateCompatibleDC(nullptr));
  const BitmapOwner bitmap(
      CreateDIBSection(device.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!bitmap) throw TooLargePicture();
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
  return WritePageFiles(pages, folder, [=](const Page& page) {
    return ToPng(RenderPage(page, dotsPerInch), dotsPerInch);
  });
}

}  // namespace td
