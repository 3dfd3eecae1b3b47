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
  const TdResult outcome = object->table->Invoke(object, *id_, &kTdNoId, 0, kind, &arguments,
                                                 &*result, &info, &badArgument);
  if (TD_FAILED(outcome)) throw FailureOfCall(outcome, info, name_);
  return result;
}

}  // namespace td
