// An object of the program that is told how a print goes on.
#pragma once

#include <cstdint>
#include <optional>

#include "interface/binary_interface.h"
#include "objects/owned.h"

namespace td {

// Calls the two methods by their names; one that the object hasn't got is not called.
class ProgramProgress {
 public:
  // The object may be empty: nobody is called.
  explicit ProgramProgress(Reference<TdDispatch> object);

  // False if the object answers so. Fail with what the object raises.
  bool PageFinished(int page);
  bool WaitsForLock(double seconds);

 private:
  bool Tell(const std::optional<std::int32_t>& member, const char* name, TdVariant argument);

  Reference<TdDispatch> object_;
  std::optional<std::int32_t> onPage_;
  std::optional<std::int32_t> onLockWait_;
};

}  // namespace td
