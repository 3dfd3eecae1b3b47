#include "objects/type_info.h"

namespace td {

// No language here asks for it.
std::uint32_t TypeInfoCountOf(const TdGuid& /*interfaceId*/) {
  return 0;
}

TdResult TypeInfoOf(const TdGuid& /*interfaceId*/, std::uint32_t /*index*/, void** info) {
  if (info != nullptr) *info = nullptr;
  return TD_NOT_IMPLEMENTED;
}

}  // namespace td
