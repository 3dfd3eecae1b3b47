// Calls by name of an object of the program.
#pragma once

#include <cstdint>
#include <optional>

#include "interface/binary_interface.h"
#include "objects/owned.h"

namespace td {

// How a program asks for a value: it can't tell a property from a method.
inline constexpr std::uint16_t kForValue = TD_CALL_GET | TD_CALL_METHOD;

// One member, looked up at its first call. All calls must be of one object.
class RemoteMember {
 public:
  explicit RemoteMember(const char* name) : name_(name) {}
  // Of a number that is known; the name is for failures.
  RemoteMember(const char* name, std::int32_t id) : name_(name), id_(id) {}

  // With at most one argument. What the object fails with becomes a Failure.
  OwnedVariant Call(TdDispatch* object, std::uint16_t kind, TdVariant* argument = nullptr);

 private:
  const char* name_;
  std::optional<std::int32_t> id_;
};

}  // namespace td
