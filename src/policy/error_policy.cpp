#include "policy/error_policy.h"

#include <new>

#include "platform/standard_failures.h"

namespace td {

Failure CurrentFailure() {
  try {
    throw;
  } catch (const Failure& failure) {
    return failure;
  } catch (const EscapingFailure& escaping) {
    return escaping.failure;
  } catch (const std::bad_alloc&) {
    return {kOutOfMemory, "内存不足"};
  } catch (const std::exception& error) {
    return {kInvalidCall, error.what()};
  } catch (...) {
    return {kInvalidCall, "未知错误"};
  }
}

Guard::Reaction Guard::ReactToCurrent() const {
  const Failure failure = CurrentFailure();
  const bool isPrinter = failure.Number() == kInvalidProperty;

  if (reactions_.retriesLocked && IsLockConflict(failure)) return Reaction::kRetry;
  if (reactions_.skipsNull && failure.Number() == kInvalidUseOfNull) return Reaction::kNext;
  if (reactions_.skipsMissingColumn && failure.Number() == kNoSuchColumn) return Reaction::kNext;
  if (!reactions_.ignoresAll && !(reactions_.reportsPrinter && isPrinter)) throw failure;

  try {
    if (handle_) handle_();
  } catch (...) {
    throw EscapingFailure{CurrentFailure()};
  }
  return Reaction::kNext;
}

void ShowFailure(Messages& messages, const Failure& failure) {
  messages.ShowBox(failure.Description(), kInformationIcon);
}

}  // namespace td
