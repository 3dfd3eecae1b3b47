// Calls by name of an object of the program.
#pragma once

#include <cstdint>
#include <optional>

#include "interface/binary_interface.h"
#include "objects/owned.h"

namespace td {

// One member, looked up at its first call. All calls must be of one object.
class RemoteMember {
 public:
  explicit RemoteMember(const char* name) : name_(name) {}

  // With at most one argument. What the object fails with becomes a Failure.
  OwnedVariant Call(TdDispatch* object, std::uint16_t kind, TdVariant* argument = nullptr);

 private:
  const char* name_;
  std::optional<std::int32_t> id_;
};

}  // namespace td
