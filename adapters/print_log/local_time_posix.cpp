#include "print_log/local_time.h"

namespace td {

std::tm LocalParts(std::int64_t moment) {
  const std::time_t time = moment;
  std::tm parts{};
  localtime_r(&time, &parts);
  return parts;
}

std::int64_t MomentOfLocal(std::tm parts) {
  parts.tm_isdst = -1;
  return std::mktime(&parts);
}

}  // namespace td
