// What tdprint tells the shell that called it.
#pragma once

namespace td {

enum class ExitStatus {
  kPrinted = 0,
  kNotPrinted = 1,
  kWrongUsage = 2,
  kPrintedWithMessages = 3,  // a message was shown: part of the bill may be missing
};

}  // namespace td
