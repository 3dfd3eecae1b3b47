#include "objects/failures.h"

#include <new>
#include <utility>

#include "client/client.h"

namespace td {
namespace {

constexpr int kLargestNumber = 0xFFFF;
constexpr std::uint32_t kNumbersBase = 0x800A0000U;

struct LastError {
  TdResult result = TD_OK;
  std::string description;
};

thread_local LastError lastError;

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

void Keep() noexcept {
  try {
    lastError = CurrentError();
  } catch (...) {
    lastError = {TD_OUT_OF_MEMORY, {}};
  }
}

void Fill(TdExceptionInfo* info) noexcept {
  if (info == nullptr) return;
  *info = {};
  info->result = lastError.result;
  if (!lastError.description.empty()) {
    info->description = TdMakeString(lastError.description.c_str());
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
  Keep();
  return lastError.result;
}

TdResult EndCallByName(TdExceptionInfo* info, std::uint32_t* badArgument) noexcept {
  try {
    throw;
  } catch (const CallFailure& failure) {
    if (badArgument != nullptr) *badArgument = failure.Argument();
    return failure.Result();
  } catch (...) {
    Keep();
    Fill(info);
    return TD_EXCEPTION;
  }
}

TdResult TakeLastError(TdExceptionInfo* info) noexcept {
  if (info == nullptr) return TD_BAD_POINTER;
  Fill(info);
  const TdResult answer = lastError.result == TD_OK ? TD_FALSE : TD_OK;
  lastError = {};
  return answer;
}

}  // namespace td
