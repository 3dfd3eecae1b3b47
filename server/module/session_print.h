// A print call with an output, a limit and a progress of its own, on the module's platform.
#pragma once

#include <optional>
#include <string>

#include "desktop/desktop_platform.h"
#include "module/print_call.h"
#include "objects/owned.h"

namespace td {

struct SessionSettings {
  enum class Output { kPrinter, kPdf, kPng, kHtml };

  Output output = Output::kPrinter;
  std::string target;  // a printer, a file or a folder; empty: the format's printer
  double dotsPerInch = 0;
  MessageMode messages = MessageMode::kAutomatic;
  std::optional<double> lockWaitLimit;
  Reference<TdDispatch> progress;  // may be empty
  bool explain = false;
  std::optional<std::string> logFile;  // as DesktopOptions has it
};

// What became of a call. The explanations are empty unless they were asked for.
struct SessionResult {
  DocumentOutcome document;
  std::string explanation;
  std::string explanationJson;
};

// Prints under the settings, which the platform forgets with the call. Fails as the print call
// does, and with kInvalidProperty when the settings name a printer that this machine doesn't have.
[[nodiscard]] SessionResult PrintInSession(DesktopPlatform& desktop,
                                           const SessionSettings& settings, PrintMethod method,
                                           PrintCall call);

}  // namespace td
