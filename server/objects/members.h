// The members that an object answers to by name.
#pragma once

#include <cstdint>
#include <vector>

#include "interface/binary_interface.h"

namespace td {

struct Member {
  const char* name;
  std::int32_t id;
  std::uint16_t kinds;                 // TD_CALL_METHOD, TD_CALL_GET, TD_CALL_PUT
  std::vector<const char*> arguments;  // their names, in their order
  std::uint32_t required = 0;          // how many of them can't be left out
};

using Members = std::vector<Member>;

// The identifiers of a member's name and of its arguments' names, as TdDispatch gives them.
TdResult FindIds(const Members& members, const TdUnit* const* names, std::uint32_t count,
                 std::int32_t* ids);

// The member to call. Fails with a CallFailure when there is none of that identifier, or when it
// can't be called that way: a method read, a property without a value written.
[[nodiscard]] const Member& FindMember(const Members& members, std::int32_t id, std::uint16_t kind);

}  // namespace td
