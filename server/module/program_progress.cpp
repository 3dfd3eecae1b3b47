#include "module/program_progress.h"

#include <utility>

#include "module/member_names.h"
#include "module/remote_failures.h"
#include "objects/variant_values.h"
#include "text_encoding/utf16.h"

namespace td {
namespace {

constexpr const char* kOnPage = "OnPage";
constexpr const char* kOnLockWait = "OnLockWait";

std::optional<std::int32_t> MemberOf(TdDispatch* object, const char* name) {
  const std::u16string wanted = ToUtf16(name);
  std::int32_t id = TD_MEMBER_UNKNOWN;
  if (object == nullptr || TD_FAILED(FindMemberOf(object, wanted.c_str(), id))) {
    return std::nullopt;
  }
  return id;
}

}  // namespace

ProgramProgress::ProgramProgress(Reference<TdDispatch> object)
    : object_(std::move(object)),
      onPage_(MemberOf(object_.Get(), kOnPage)),
      onLockWait_(MemberOf(object_.Get(), kOnLockWait)) {}

bool ProgramProgress::PageFinished(int page) {
  return Tell(onPage_, kOnPage, TdIntegerVariant(page));
}

bool ProgramProgress::WaitsForLock(double seconds) {
  return Tell(onLockWait_, kOnLockWait, TdNumberVariant(seconds));
}

bool ProgramProgress::Tell(const std::optional<std::int32_t>& member, const char* name,
                           TdVariant argument) {
  if (!member) return true;
  TdArguments arguments{&argument, nullptr, 1, 0};
  TdExceptionInfo info{};
  OwnedVariant answer;
  const TdResult outcome = object_.Get()->table->Invoke(
      object_.Get(), *member, &kTdNoId, 0, TD_CALL_METHOD, &arguments, &*answer, &info, nullptr);
  if (TD_FAILED(outcome)) throw FailureOfCall(outcome, info, name, kProgressObject);
  const TdVariant said = WithoutReference(*answer);
  return said.type != TD_BOOLEAN || said.value.flag != TD_FALSE_FLAG;
}

}  // namespace td
