// What QbTdPrinter.Session answers to by name.
#pragma once

#include <cstdint>

#include "module/printing_object.h"
#include "objects/members.h"

namespace td {

// Behind those of PrintMember.
enum SessionMember : std::int32_t {
  kToPrinter = kPrintBlankRows + 1,
  kToPdf,
  kToPng,
  kToHtml,
  kMessageMode,
  kLockWaitLimit,
  kProgress,
  kExplain,
  kLogFile,
  kCancel,
  kMessage,
  kMessagePlace,
  // Properties that are read and take no arguments.
  kDelivered,
  kResult,
  kReason,
  kPages,
  kPrinterName,
  kJobNumber,
  kJobs,
  kMessageCount,
  kMessages,
  kComplaints,
  kExplanation,
  kExplanationJson
};

[[nodiscard]] const Members& SessionMembers();

}  // namespace td
