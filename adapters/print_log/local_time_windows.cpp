#include "print_log/local_time.h"

namespace td {

// In 32 bits the standard's own functions end in 2038.
std::tm LocalParts(std::int64_t moment) {
  std::tm parts{};
  _localtime64_s(&parts, &moment);
  return parts;
}

std::int64_t MomentOfLocal(std::tm parts) {
  parts.tm_isdst = -1;
  return _mktime64(&parts);
}

}  // namespace td
