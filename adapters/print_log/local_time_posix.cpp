#include "print_log/local_time.h"

namespace td {

std::tm LocalParts(std::time_t time) {
  std::tm parts{};
  localtime_r(&time, &parts);
  return parts;
}

}  // namespace td
