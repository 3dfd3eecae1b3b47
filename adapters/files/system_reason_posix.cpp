#include <cerrno>
#include <cstring>

#include "files/file_error.h"

namespace td {

std::string SystemReasonOf(int number) {
  return number == EDQUOT ? "磁盘配额已用完" : std::strerror(number);
}

}  // namespace td
