#include "files/read_file.h"

#include <sys/stat.h>

#include <cerrno>

#include "files/file_error.h"

namespace td {

std::string ReadRegularFile(const Descriptor& file, std::size_t largest) {
  struct stat state {};
  if (fstat(file.Number(), &state) != 0) throw FileError(errno);
  if (!S_ISREG(state.st_mode)) throw FileError(S_ISDIR(state.st_mode) ? EISDIR : EINVAL);
  std::string content(largest + 1, '\0');
  std::size_t size = 0;
  while (size < content.size()) {
    const ssize_t count = read(file.Number(), content.data() + size, content.size() - size);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw FileError(errno);
    if (count == 0) break;
    size += static_cast<std::size_t>(count);
  }
  if (size > largest) throw FileError(EFBIG);
  content.resize(size);
  return content;
}

}  // namespace td
