#include "module/print_call.h"

#include "objects/variant_values.h"

namespace td {

const std::vector<const char*>& PrintArgumentNames() {
  static const std::vector<const char*> names = {
      "New_DoPrint",     "New_PromptString", "New_TranType", "New_OnlyPrintVariantItem",
      "New_PrintBorder", "PrintData",        "TDBillName",   "PrintDevice"};
  return names;
}

PrintCall PrintCallOf(const CallArguments& given) {
  return {given.Flag(0), given.Text(1),   given.Integer16(2), given.Flag(3),
          given.Flag(4), given.Object(5), given.Text(6)};
}

PrintCall PrintCallOf(TdFlag New_DoPrint, TdString New_PromptString, std::int16_t New_TranType,
                      TdFlag New_OnlyPrintVariantItem, TdFlag New_PrintBorder,
                      TdDispatch** PrintData, TdString TDBillName) {
  return {New_DoPrint != 0,
          TextOf(New_PromptString),
          New_TranType,
          New_OnlyPrintVariantItem != 0,
          New_PrintBorder != 0,
          PrintData == nullptr ? Reference<TdDispatch>() : Reference<TdDispatch>::To(*PrintData),
          TextOf(TDBillName)};
}

void RequireData(const PrintCall& call) {
  if (call.PrintData.Get() == nullptr) throw NothingToPrintFailure();
}

void Print(PrintMethod method, const PrintCall& call, Platform& platform,
           const RecordsetRef& rows) {
  Printer printer(platform);
  (printer.*method)(call.New_DoPrint, call.New_PromptString, call.New_TranType,
                    call.New_OnlyPrintVariantItem, call.New_PrintBorder, rows, call.TDBillName,
                    nullptr);
}

}  // namespace td
