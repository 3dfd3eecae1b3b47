#include "module/remote_failures.h"

#include <array>
#include <cstdio>

#include "client/client.h"
#include "objects/failures.h"
#include "objects/owned.h"
#include "objects/variant_values.h"
#include "platform/standard_failures.h"

namespace td {
namespace {

// What the codes of the binary interface are among the numbers of errors.
int NumberOf(TdResult result) {
  switch (result) {
    case TD_MEMBER_NOT_FOUND:
    case TD_UNKNOWN_NAME:
      return kNoSuchMember;
    case TD_BAD_ARGUMENT_COUNT:
    case TD_ARGUMENT_NOT_OPTIONAL:
      return kWrongArgumentCount;
    case TD_TYPE_MISMATCH:
    case TD_BAD_VARIANT_TYPE:
      return kTypeMismatch;
    case TD_VALUE_OVERFLOW:
      return kOverflow;
    case TD_OUT_OF_MEMORY:
      return kOutOfMemory;
    default:
      return NumberOfResult(result);
  }
}

std::string DescriptionOf(int number, const char* whose, const char* member) {
  const std::string name = "“" + std::string(member) + "”";
  switch (number) {
    case kNoSuchMember:
      return whose + ("没有" + name) + "。";
    case kNoSuchColumn:
      return NoSuchColumnFailure().Description();
    case kInvalidUseOfNull:
      return NullFailure().Description();
    case kNoCurrentRow:
      return NoCurrentRowFailure().Description();
    default:
      break;
  }
  std::array<char, 16> code{};
  std::snprintf(code.data(), code.size(), "0x%08X", static_cast<unsigned>(number));
  return whose + ("的" + name) + "失败（" + code.data() + "）。";
}

Failure MakeFailure(int number, const TdExceptionInfo& info, const char* whose,
                    const char* member) {
  std::string description = TextOf(info.description);
  if (description.empty()) description = DescriptionOf(number, whose, member);
  return {number, description};
}

}  // namespace

Failure FailureOfCall(TdResult result, TdExceptionInfo& info, const char* member,
                      const char* whose) {
  int number = NumberOf(result);
  if (result == TD_EXCEPTION) {
    if (info.fillLater != nullptr) (void)info.fillLater(&info);
    number = info.code != 0 ? info.code : NumberOf(info.result);
    if (number == TD_OK) number = TD_FAILURE;
  }
  Failure failure = MakeFailure(number, info, whose, member);
  TdClearException(&info);
  return failure;
}

Failure FailureOfDirectCall(TdResult result, TdRecordset* object, const char* member) {
  TdExceptionInfo info{};
  const auto source = InterfaceOf<TdErrorSource>(object, kTdErrorSourceId);
  if (source.Get() != nullptr) source.Get()->table->LastError(source.Get(), &info);
  Failure failure = MakeFailure(NumberOf(result), info, kDataObject, member);
  TdClearException(&info);
  return failure;
}

}  // namespace td
