// Findings for people and for programs.
#pragma once

#include <string>

#include "checker/checker.h"
#include "checker/finding_messages.h"

namespace td::checker {

// Lines of at most 96 columns, statements excepted, and a last line that counts them.
[[nodiscard]] std::string ReportText(const CheckResult& result, Language language);

// One object, as docs/checking.md has it.
[[nodiscard]] std::string ReportJson(const CheckResult& result, Language language);

// "error", "warning", "hint".
[[nodiscard]] std::string SeverityId(Severity severity);

}  // namespace td::checker
