// Failures on their way through the binary interface, in both directions.
#pragma once

#include <cstdint>
#include <string>

#include "interface/binary_interface.h"
#include "platform/failure.h"

namespace td {

// A call by name that can't be made as it is written: a result code without a description.
class CallFailure : public std::exception {
 public:
  explicit CallFailure(TdResult result, std::uint32_t argument = 0)
      : result_(result), argument_(argument) {}

  [[nodiscard]] TdResult Result() const { return result_; }
  // The place of the argument at fault, as the caller counts.
  [[nodiscard]] std::uint32_t Argument() const { return argument_; }
  [[nodiscard]] const char* what() const noexcept override { return "call failure"; }

 private:
  TdResult result_;
  std::uint32_t argument_;
};

[[nodiscard]] TdResult ResultOfNumber(int number);
[[nodiscard]] int NumberOfResult(TdResult result);

// Ends a direct call by the exception that is being handled: keeps number and description for this
// thread's LastError, and the description for the system's way, and returns the result code.
TdResult EndDirectCall() noexcept;

// Ends a call by name by the exception that is being handled. A Failure fills `info`; both pointers
// may be null.
TdResult EndCallByName(TdExceptionInfo* info, std::uint32_t* badArgument) noexcept;

// What EndDirectCall or EndCallByName kept last on this thread, once; TD_FALSE if there is nothing.
TdResult TakeLastError(TdExceptionInfo* info) noexcept;

}  // namespace td
