#include "module/member_names.h"

namespace td {

TdResult FindMemberOf(TdDispatch* object, const TdUnit* name, std::int32_t& id) {
  return object->table->GetIDsOfNames(object, &kTdNoId, &name, 1, 0, &id);
}

}  // namespace td
