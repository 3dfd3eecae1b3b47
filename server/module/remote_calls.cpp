#include "module/remote_calls.h"

#include <string>

#include "module/member_names.h"
#include "module/remote_failures.h"
#include "text_encoding/utf16.h"

namespace td {

OwnedVariant RemoteMember::Call(TdDispatch* object, std::uint16_t kind, TdVariant* argument) {
  TdExceptionInfo info{};
  if (!id_) {
    const std::u16string name = ToUtf16(name_);
    std::int32_t id = TD_MEMBER_UNKNOWN;
    const TdResult found = FindMemberOf(object, name.c_str(), id);
    if (TD_FAILED(found)) throw FailureOfCall(found, info, name_);
    id_ = id;
  }
  TdArguments arguments{argument, nullptr, argument == nullptr ? 0U : 1U, 0};
  std::uint32_t badArgument = 0;
  OwnedVariant result;
  const auto invoke = [&](std::uint16_t asked) {
    return object->table->Invoke(object, *id_, &kTdNoId, 0, asked, &arguments, &*result, &info,
                                 &badArgument);
  };
  TdResult outcome = invoke(kind);
  // Some hosts of scripts take what may be either for a method, and can't call a property.
  if (outcome == TD_FAILURE && kind == kForValue) outcome = invoke(TD_CALL_GET);
  if (TD_FAILED(outcome)) throw FailureOfCall(outcome, info, name_);
  return result;
}

}  // namespace td
