// A print call as it comes through the binary interface.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "objects/call_arguments.h"
#include "objects/owned.h"
#include "service/printer.h"

namespace td {

using PrintMethod = decltype(&Printer::DoPrint);

// The arguments of both print methods, but for the one that has no effect.
struct PrintCall {
  bool New_DoPrint;
  std::string New_PromptString;
  std::int16_t New_TranType;
  bool New_OnlyPrintVariantItem;
  bool New_PrintBorder;
  Reference<TdDispatch> PrintData;
  std::string TDBillName;
};

// By name: the arguments' names in their order, of which the first six can't be left out.
[[nodiscard]] const std::vector<const char*>& PrintArgumentNames();
inline constexpr std::uint32_t kRequiredPrintArguments = 6;
[[nodiscard]] PrintCall PrintCallOf(const CallArguments& given);

// Directly.
[[nodiscard]] PrintCall PrintCallOf(TdFlag New_DoPrint, TdString New_PromptString,
                                    std::int16_t New_TranType, TdFlag New_OnlyPrintVariantItem,
                                    TdFlag New_PrintBorder, TdDispatch** PrintData,
                                    TdString TDBillName);

// Fails with kNothingToPrint if the call has no data: before the platform is made, which reads
// files and can fail.
void RequireData(const PrintCall& call);

// Prints `rows`, the record set of the call's data.
void Print(PrintMethod method, const PrintCall& call, Platform& platform, const RecordsetRef& rows);

}  // namespace td
