#include "objects/members.h"

#include <algorithm>
#include <string>

#include "objects/failures.h"
#include "text/conversions.h"
#include "text_encoding/utf16.h"

namespace td {
namespace {

bool IsNamed(const std::string& lowerCaseName, const char* name) {
  return LowerCase(name) == lowerCaseName;
}

}  // namespace

TdResult FindIds(const Members& members, const TdUnit* const* names, std::uint32_t count,
                 std::int32_t* ids) {
  std::fill_n(ids, count, TD_MEMBER_UNKNOWN);
  if (count == 0) return TD_OK;
  const auto wanted = [names](std::uint32_t i) {
    return names[i] == nullptr ? std::string() : LowerCase(ToUtf8(names[i]));
  };
  const std::string memberName = wanted(0);
  const auto member = std::ranges::find_if(
      members, [&](const Member& one) { return IsNamed(memberName, one.name); });
  if (member == members.end()) return TD_UNKNOWN_NAME;
  ids[0] = member->id;

  TdResult result = TD_OK;
  for (std::uint32_t i = 1; i < count; ++i) {
    const std::string argumentName = wanted(i);
    const auto argument = std::ranges::find_if(
        member->arguments, [&](const char* one) { return IsNamed(argumentName, one); });
    if (argument == member->arguments.end()) {
      result = TD_UNKNOWN_NAME;
    } else {
      ids[i] = static_cast<std::int32_t>(argument - member->arguments.begin());
    }
  }
  return result;
}

const Member& FindMember(const Members& members, std::int32_t id, std::uint16_t kind) {
  const auto member = std::ranges::find(members, id, &Member::id);
  if (member == members.end() || (member->kinds & kind) == 0) {
    throw CallFailure(TD_MEMBER_NOT_FOUND);
  }
  return *member;
}

}  // namespace td
