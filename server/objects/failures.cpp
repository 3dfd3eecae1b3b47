#include "objects/failures.h"

#include <map>
#include <mutex>
#include <new>
#include <thread>
#include <utility>

#include "client/client.h"
#include "objects/system_errors.h"

namespace td {
namespace {

constexpr int kLargestNumber = 0xFFFF;
constexpr std::uint32_t kNumbersBase = 0x800A0000U;

struct LastError {
  TdResult result = TD_OK;
  std::string description;
};

// The last error of each thread that hasn't fetched it. Storage of the threads' own would keep the
// module from being unloaded as long as they live.
class LastErrors {
 public:
  void Keep(LastError error) {
    const std::lock_guard lock(mutex_);
    errors_[std::this_thread::get_id()] = std::move(error);
  }
  LastError Take() {
    const std::lock_guard lock(mutex_);
    const auto found = errors_.extract(std::this_thread::get_id());
    return found.empty() ? LastError() : std::move(found.mapped());
  }

 private:
  std::mutex mutex_;
  std::map<std::thread::id, LastError> errors_;
};

LastErrors lastErrors;

// What the exception that is being handled says.
LastError CurrentError() {
  try {
    throw;
  } catch (const Failure& failure) {
    return {ResultOfNumber(failure.Number()), failure.Description()};
  } catch (const CallFailure& failure) {
    return {failure.Result(), {}};
  } catch (const std::bad_alloc&) {
    return {TD_OUT_OF_MEMORY, {}};
  } catch (const std::exception& error) {
    return {TD_FAILURE, error.what()};
  } catch (...) {
    return {TD_FAILURE, {}};
  }
}

void Fill(TdExceptionInfo* info, const LastError& error) {
  if (info == nullptr) return;
  *info = {};
  info->result = error.result;
  if (!error.description.empty()) info->description = TdMakeString(error.description.c_str());
}

TdResult ReportCurrentError(TdExceptionInfo* info) noexcept {
  try {
    LastError error = CurrentError();
    Fill(info, error);
    lastErrors.Keep(std::move(error));
    return TD_EXCEPTION;
  } catch (...) {
    return TD_OUT_OF_MEMORY;
  }
}

}  // namespace

TdResult ResultOfNumber(int number) {
  if (number < 0) return number;
  return number >= 1 && number <= kLargestNumber ? TD_RESULT_OF_NUMBER(number) : TD_FAILURE;
}

int NumberOfResult(TdResult result) {
  const auto bits = static_cast<std::uint32_t>(result);
  const auto number = static_cast<int>(bits & 0xFFFFU);
  return (bits & 0xFFFF0000U) == kNumbersBase && number != 0 ? number : result;
}

TdResult EndDirectCall() noexcept {
  try {
    LastError error = CurrentError();
    const TdResult result = error.result;
    PutSystemError(error.description);
    lastErrors.Keep(std::move(error));
    return result;
  } catch (...) {
    return TD_OUT_OF_MEMORY;
  }
}

TdResult EndCallByName(TdExceptionInfo* info, std::uint32_t* badArgument) noexcept {
  try {
    throw;
  } catch (const CallFailure& failure) {
    if (badArgument != nullptr) *badArgument = failure.Argument();
    return failure.Result();
  } catch (...) {
    return ReportCurrentError(info);
  }
}

TdResult TakeLastError(TdExceptionInfo* info) noexcept {
  if (info == nullptr) return TD_BAD_POINTER;
  try {
    const LastError error = lastErrors.Take();
    Fill(info, error);
    return error.result == TD_OK ? TD_FALSE : TD_OK;
  } catch (...) {
    return TD_OUT_OF_MEMORY;
  }
}

}  // namespace td
