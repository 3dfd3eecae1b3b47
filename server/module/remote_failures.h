// Failures of the program's objects.
#pragma once

#include <string>

#include "interface/binary_interface.h"
#include "platform/failure.h"

namespace td {

inline constexpr int kNoSuchMember = 438;
inline constexpr int kWrongArgumentCount = 450;

// Whose member failed, for a failure that doesn't say more.
inline constexpr const char* kDataObject = "数据对象";
inline constexpr const char* kProgressObject = "进度对象";

// Of a call by name that ended with `result`. Frees the strings of `info`.
[[nodiscard]] Failure FailureOfCall(TdResult result, TdExceptionInfo& info, const char* member,
                                    const char* whose = kDataObject);

// Of a direct call that ended with `result`; `object` is asked for the description.
[[nodiscard]] Failure FailureOfDirectCall(TdResult result, TdRecordset* object, const char* member);

}  // namespace td
