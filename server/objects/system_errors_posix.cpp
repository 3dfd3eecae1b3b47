#include "objects/system_errors.h"

namespace td {

SystemErrorsPart::SystemErrorsPart(TdObject* object) : table(nullptr), whole(object) {}

bool SystemErrorsPart::Is(const TdGuid& /*id*/) {
  return false;
}

void PutSystemError(const std::string& /*description*/) noexcept {}

}  // namespace td
