// Small files that the component reads whole.
#pragma once

#include <cstddef>
#include <string>

#include "files/descriptor.h"

namespace td {

// The content of an open file. Only a regular file is read: a pipe or a device might never end.
// Fails with FileError: EINVAL for anything else, EFBIG for more than `largest` bytes.
[[nodiscard]] std::string ReadRegularFile(const Descriptor& file, std::size_t largest);

}  // namespace td
