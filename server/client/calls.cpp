#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "client/client.h"
#include "text_encoding/utf16.h"

namespace {

struct Call {
  TdDispatch* object;
  const char* member;
  std::uint16_t kind;
  std::vector<TdVariant> arguments;  // in their order; they stay the caller's
};

TdResult Run(Call& call, TdVariant* result, TdExceptionInfo* info) {
  if (call.object == nullptr || call.member == nullptr) return TD_BAD_POINTER;
  const std::u16string name = td::ToUtf16(call.member);
  const TdUnit* names = name.c_str();
  std::int32_t member = TD_MEMBER_UNKNOWN;
  const TdDispatchTable& table = *call.object->table;
  const TdResult found = table.GetIDsOfNames(call.object, &kTdNoId, &names, 1, 0, &member);
  if (TD_FAILED(found)) return found;

  std::ranges::reverse(call.arguments);
  std::int32_t putName = TD_MEMBER_PUT;
  const bool isPut = call.kind == TD_CALL_PUT;
  TdArguments arguments{call.arguments.data(), isPut ? &putName : nullptr,
                        static_cast<std::uint32_t>(call.arguments.size()), isPut ? 1U : 0U};
  return table.Invoke(call.object, member, &kTdNoId, 0, call.kind, &arguments, result, info,
                      nullptr);
}

}  // namespace

TdResult TdCall(TdDispatch* object, const char* method, TdVariant* arguments, std::uint32_t count,
                TdVariant* result, TdExceptionInfo* info) {
  if (arguments == nullptr && count > 0) return TD_BAD_POINTER;
  if (result != nullptr) *result = TdEmptyVariant();
  if (info != nullptr) *info = {};
  try {
    Call call{object, method, TD_CALL_METHOD, {}};
    // A caller that wants a result may mean a property with arguments.
    if (result != nullptr) call.kind |= TD_CALL_GET;
    call.arguments.assign(arguments, arguments + count);
    return Run(call, result, info);
  } catch (const std::exception&) {
    return TD_OUT_OF_MEMORY;
  }
}

TdResult TdGet(TdDispatch* object, const char* property, TdVariant* value, TdExceptionInfo* info) {
  if (value == nullptr) return TD_BAD_POINTER;
  *value = TdEmptyVariant();
  if (info != nullptr) *info = {};
  try {
    Call call{object, property, TD_CALL_GET, {}};
    return Run(call, value, info);
  } catch (const std::exception&) {
    return TD_OUT_OF_MEMORY;
  }
}

TdResult TdPut(TdDispatch* object, const char* property, TdVariant value, TdExceptionInfo* info) {
  if (info != nullptr) *info = {};
  TdResult result = TD_OUT_OF_MEMORY;
  try {
    Call call{object, property, TD_CALL_PUT, {value}};
    result = Run(call, nullptr, info);
  } catch (const std::exception&) {
    result = TD_OUT_OF_MEMORY;
  }
  TdClearVariant(&value);
  return result;
}
