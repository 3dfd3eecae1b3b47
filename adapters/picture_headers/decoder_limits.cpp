#include "picture_headers/decoder_limits.h"

#include <string>

#include "platform/failure.h"

namespace td {

PictureFormat RequireDecodable(const Bytes& file, int leastBits) {
  if (file.empty()) throw Failure(kInvalidPicture, "图片文件是空的。");
  if (file.size() > kLargestFileBytes) {
    throw Failure(kInvalidPicture, "图片文件过大，不予装入：超过 " +
                                       std::to_string(kLargestFileBytes >> 20) + " MB。");
  }
  const PictureFormat format = FormatOf(file);
  if (format == PictureFormat::kUnknown) {
    throw Failure(kInvalidPicture, "不是可用的图片文件：只支持 JPEG、PNG、BMP、GIF 和 TIFF。");
  }
  RequireDecodedSize(SizeOf(file), leastBits);
  if (!IsComplete(file)) throw Failure(kInvalidPicture, "图片文件不完整。");
  return format;
}

void RequireDecodedSize(const PixelSize& size, int bitsPerPixel) {
  if (size.width <= 0 || size.height <= 0) {
    throw Failure(kInvalidPicture, "图片文件已损坏：无法读出图片的大小。");
  }
  const double bytes =
      static_cast<double>(size.width) * static_cast<double>(size.height) * bitsPerPixel / 8;
  if (bytes > static_cast<double>(kLargestDecodedBytes)) {
    throw Failure(kInvalidPicture, "图片过大，不予装入：" + std::to_string(size.width) + "×" +
                                       std::to_string(size.height) + " 像素展开后超过 " +
                                       std::to_string(kLargestDecodedBytes >> 20) + " MB。");
  }
}

}  // namespace td
