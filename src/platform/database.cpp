#include "platform/database.h"

#include "platform/failure.h"
#include "platform/standard_failures.h"

namespace td {

const Value* Recordset::Find(std::string_view column) {
  try {
    return &Field(column);
  } catch (const Failure& failure) {
    if (failure.Number() != kNoSuchColumn || IsLockConflict(failure)) throw;
    return nullptr;
  }
}

}  // namespace td
