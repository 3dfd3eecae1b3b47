#include "module/printing_object.h"

#include <vector>

namespace td {

Members PrintMembers() {
  constexpr std::uint32_t kRequired = 6;
  const std::vector<const char*> arguments = {
      "New_DoPrint",     "New_PromptString", "New_TranType", "New_OnlyPrintVariantItem",
      "New_PrintBorder", "PrintData",        "TDBillName",   "PrintDevice"};
  return {{"DoPrint", kDoPrint, TD_CALL_METHOD, arguments, kRequired},
          {"DoPrint_GroupByArea", kDoPrintGroupByArea, TD_CALL_METHOD, arguments, kRequired},
          {"PrintOk", kPrintOk, TD_CALL_GET, {}},
          {"PrintBlankRows", kPrintBlankRows, TD_CALL_PUT, {"NewValue"}, 1}};
}

}  // namespace td
