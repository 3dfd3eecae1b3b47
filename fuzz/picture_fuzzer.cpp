// Any bytes are a picture or a refusal: loading them neither crashes nor takes memory without
// bound.
#include <QGuiApplication>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "picture_headers/picture_headers.h"
#include "pictures/picture_decoder.h"
#include "platform/failure.h"

namespace {

void IgnoreMessage(QtMsgType /*type*/, const QMessageLogContext& /*place*/,
                   const QString& /*text*/) {}

void Require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(IgnoreMessage);
  static const QGuiApplication application(*argc, *argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto* first = reinterpret_cast<const std::byte*>(data);
  const td::Bytes file(first, first + size);
  const td::PictureResolution resolution = td::ResolutionOf(file);
  Require(resolution.x == resolution.x && resolution.y == resolution.y);  // no NaN
  try {
    const td::DecodedPicture picture = td::DecodePicture(file);
    Require(!picture.image.isNull());
    Require(static_cast<std::size_t>(picture.image.sizeInBytes()) <= td::kLargestDecodedBytes);
  } catch (const td::Failure& failure) {
    Require(failure.Number() == td::kInvalidPicture);
  }
  return 0;
}
