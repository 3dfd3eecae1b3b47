#include "policy/error_policy.h"

#include <new>

#include "platform/run_witness.h"
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

Guard::Reaction Guard::ReactToCurrent(Statement statement) const {
  const Failure failure = CurrentFailure();
  const bool isPrinter = failure.Number() == kInvalidProperty;

  if (reactions_.retriesLocked && IsLockConflict(failure)) {
    if (witness_ != nullptr) witness_->TriesAgain(failure);
    return Reaction::kRetry;
  }
  const bool isSkipped = (reactions_.skipsNull && failure.Number() == kInvalidUseOfNull) ||
                         (reactions_.skipsMissingColumn && failure.Number() == kNoSuchColumn);
  const bool isHandled = reactions_.ignoresAll || (reactions_.reportsPrinter && isPrinter);
  if (!isSkipped && !isHandled) {
    if (witness_ != nullptr) witness_->Ends(failure);
    throw failure;
  }
  if (witness_ != nullptr) witness_->Forgives(failure, statement == Statement::kTest);

  try {
    if (handle_ && !isSkipped) handle_();
  } catch (...) {
    throw EscapingFailure{CurrentFailure()};
  }
  return Reaction::kNext;
}

void ShowFailure(Messages& messages, const Failure& failure) {
  messages.ShowBox(failure.Description(), kInformationIcon);
}

}  // namespace td
