// What can be wrong with a picture's file. Descriptions name the file, but never show the character
// 锁 of its name.
#pragma once

#include <string>

#include "files/file_error.h"
#include "platform/failure.h"
#include "platform/pictures.h"
#include "platform/value.h"

namespace td {

// Pictures on the disk of a desktop.
//
// Beside the failures of Pictures: kInvalidUseOfNull and kTypeMismatch for a value without bytes,
// and the numbers below.
class PicturesOnDisk : public Pictures {
 public:
  static constexpr int kFileExists = 58;
  static constexpr int kPermissionDenied = 70;
};

[[nodiscard]] Failure PictureFileFailure(int number, const std::string& reason,
                                         const std::string& path);
// What the system refused.
[[nodiscard]] Failure PictureFileFailure(const FileError& error, const std::string& path);
// A failure that doesn't tell which file it is about.
[[nodiscard]] Failure WithPath(const Failure& failure, const std::string& path);

// Fails for no path at all and for a byte 0, which would end the path early and name another file.
void RequireWholePath(const std::string& path);

// Those of a value that is to be saved; fails for any other value and for no bytes.
[[nodiscard]] const Bytes& PictureBytesOf(const Value& value, const std::string& path);

}  // namespace td
