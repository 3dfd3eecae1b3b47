// The words of the findings, check by check: those of bill_checks.cpp stand in bill_messages.cpp.
#pragma once

#include <span>

#include "checker/finding_messages.h"

namespace td::checker {

// Each in the order of the enumeration.
[[nodiscard]] std::span<const FindingMessage> BillMessages();
[[nodiscard]] std::span<const FindingMessage> ItemMessages();
[[nodiscard]] std::span<const FindingMessage> SheetMessages();
[[nodiscard]] std::span<const FindingMessage> TextMessages();
[[nodiscard]] std::span<const FindingMessage> FormatStringMessages();
[[nodiscard]] std::span<const FindingMessage> BarcodeMessages();
[[nodiscard]] std::span<const FindingMessage> DataMessages();
[[nodiscard]] std::span<const FindingMessage> SettingsMessages();

}  // namespace td::checker
