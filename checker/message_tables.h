// The words of the findings, check by check: those of bill_checks.cpp stand in bill_messages.cpp.
#pragma once

#include <span>

#include "checker/finding_messages.h"

namespace td::checker {

// Each in the order of the enumeration.
extern const std::span<const FindingMessage> kBillMessages;
extern const std::span<const FindingMessage> kItemMessages;
extern const std::span<const FindingMessage> kSheetMessages;
extern const std::span<const FindingMessage> kTextMessages;
extern const std::span<const FindingMessage> kFormatStringMessages;
extern const std::span<const FindingMessage> kBarcodeMessages;
extern const std::span<const FindingMessage> kDataMessages;
extern const std::span<const FindingMessage> kSettingsMessages;

}  // namespace td::checker
