// What tdprint tells the shell that called it.
#pragma once

namespace td {

enum class ExitStatus {
  kPrinted = 0,     // or done otherwise: help was shown, a window was closed
  kNotPrinted = 1,  // or not shown
  kWrongUsage = 2,
  kPrintedWithMessages = 3,  // a message was shown: part of the bill may be missing

  // Of a check, which prints nothing.
  kNothingFound = 0,  // nothing but hints
  kWarningsFound = 1,
  kErrorsFound = 2,
  kNotChecked = 3,
};

}  // namespace td
