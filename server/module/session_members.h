// What QbTdPrinter.Session answers to by name.
#pragma once

#include <cstdint>

#include "objects/members.h"

namespace td {

enum SessionMember : std::int32_t {
  kDoPrint = 1,
  kDoPrintGroupByArea,
  kPrintOk,
  kPrintBlankRows,
  kToPrinter,
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
