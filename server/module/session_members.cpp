#include "module/session_members.h"

#include "module/print_call.h"

namespace td {

const Members& SessionMembers() {
  // A property that holds an object may be written in either way.
  constexpr std::uint16_t kPutObject = TD_CALL_PUT | TD_CALL_PUT_REFERENCE;
  constexpr std::uint16_t kGetIndexed = TD_CALL_GET | TD_CALL_METHOD;
  static const Members members = {
      {"DoPrint", kDoPrint, TD_CALL_METHOD, PrintArgumentNames(), kRequiredPrintArguments},
      {"DoPrint_GroupByArea", kDoPrintGroupByArea, TD_CALL_METHOD, PrintArgumentNames(),
       kRequiredPrintArguments},
      {"PrintOk", kPrintOk, TD_CALL_GET, {}},
      {"PrintBlankRows", kPrintBlankRows, TD_CALL_PUT, {"NewValue"}, 1},
      {"ToPrinter", kToPrinter, TD_CALL_METHOD, {"Name"}, 1},
      {"ToPdf", kToPdf, TD_CALL_METHOD, {"File"}, 1},
      {"ToPng", kToPng, TD_CALL_METHOD, {"Folder", "DotsPerInch"}, 1},
      {"ToHtml", kToHtml, TD_CALL_METHOD, {"File"}, 1},
      {"MessageMode", kMessageMode, TD_CALL_PUT, {"NewValue"}, 1},
      {"LockWaitLimit", kLockWaitLimit, TD_CALL_PUT, {"NewValue"}, 1},
      {"Progress", kProgress, kPutObject, {"NewValue"}, 1},
      {"Explain", kExplain, TD_CALL_PUT, {"NewValue"}, 1},
      {"LogFile", kLogFile, TD_CALL_PUT, {"NewValue"}, 1},
      {"Cancel", kCancel, TD_CALL_METHOD, {}},
      {"Delivered", kDelivered, TD_CALL_GET, {}},
      {"Result", kResult, TD_CALL_GET, {}},
      {"Reason", kReason, TD_CALL_GET, {}},
      {"Pages", kPages, TD_CALL_GET, {}},
      {"PrinterName", kPrinterName, TD_CALL_GET, {}},
      {"JobNumber", kJobNumber, TD_CALL_GET, {}},
      {"Jobs", kJobs, TD_CALL_GET, {}},
      {"MessageCount", kMessageCount, TD_CALL_GET, {}},
      {"Message", kMessage, kGetIndexed, {"Index"}, 1},
      {"Messages", kMessages, TD_CALL_GET, {}},
      {"MessagePlace", kMessagePlace, kGetIndexed, {"Index"}, 1},
      {"Complaints", kComplaints, TD_CALL_GET, {}},
      {"Explanation", kExplanation, TD_CALL_GET, {}},
      {"ExplanationJson", kExplanationJson, TD_CALL_GET, {}}};
  return members;
}

}  // namespace td
