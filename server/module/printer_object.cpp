#include "module/printer_object.h"

#include <utility>

#include "desktop/desktop_platform.h"
#include "module/component.h"
#include "module/print_call.h"
#include "module/remote_recordset.h"
#include "objects/dispatch_object.h"
#include "service/request.h"

namespace td {
namespace {

enum MemberId : std::int32_t { kDoPrint = 1, kDoPrintGroupByArea, kPrintOk, kPrintBlankRows };

void PrintNow(PrintMethod method, PrintCall call) {
  RequireData(call);
  Platform& platform = Component::Get().Desktop().Get();
  Print(method, call, platform, RecordsetOf(std::move(call.PrintData)));
}

class PrinterObject final : public DispatchObject<PrinterObject, TdPrinter> {
 public:
  PrinterObject() : DispatchObject(&kTable) {}

  static const TdGuid& OwnInterface() { return kTdPrinterId; }
  static bool Has(const TdGuid& id) {
    return SameGuid(id, kTdDispatchId) || SameGuid(id, kTdPrinterId);
  }
  static void Enter() { Component::Get().CheckThread(); }
  static const Members& AllMembers();

  void Call(std::int32_t member, const CallArguments& arguments, TdVariant& result);

 private:
  static TdResult TD_CALL DoPrint(TdPrinter* self, TdFlag New_DoPrint, TdString New_PromptString,
                                  std::int16_t New_TranType, TdFlag New_OnlyPrintVariantItem,
                                  TdFlag New_PrintBorder, TdDispatch** PrintData,
                                  TdString TDBillName, TdVariant* PrintDevice);
  static TdResult TD_CALL DoPrint_GroupByArea(TdPrinter* self, TdFlag New_DoPrint,
                                              TdString New_PromptString, std::int16_t New_TranType,
                                              TdFlag New_OnlyPrintVariantItem,
                                              TdFlag New_PrintBorder, TdDispatch** PrintData,
                                              TdString TDBillName, TdVariant* PrintDevice);
  static TdResult TD_CALL PrintOk(TdPrinter* self, TdFlag* value);
  static TdResult TD_CALL PrintBlankRows(TdPrinter* self, std::int16_t NewValue);

  static const TdPrinterTable kTable;

  Use use_;
};

const TdPrinterTable PrinterObject::kTable = {QueryInterface,   AddRef,        Release,
                                              GetTypeInfoCount, GetTypeInfo,   GetIDsOfNames,
                                              Invoke,           DoPrint,       DoPrint_GroupByArea,
                                              PrintOk,          PrintBlankRows};

const Members& PrinterObject::AllMembers() {
  static const Members members = {
      {"DoPrint", kDoPrint, TD_CALL_METHOD, PrintArgumentNames(), kRequiredPrintArguments},
      {"DoPrint_GroupByArea", kDoPrintGroupByArea, TD_CALL_METHOD, PrintArgumentNames(),
       kRequiredPrintArguments},
      {"PrintOk", kPrintOk, TD_CALL_GET, {}},
      {"PrintBlankRows", kPrintBlankRows, TD_CALL_PUT, {"NewValue"}, 1}};
  return members;
}

void PrinterObject::Call(std::int32_t member, const CallArguments& arguments, TdVariant& result) {
  switch (member) {
    case kDoPrint:
      PrintNow(&Printer::DoPrint, PrintCallOf(arguments));
      break;
    case kDoPrintGroupByArea:
      PrintNow(&Printer::DoPrint_GroupByArea, PrintCallOf(arguments));
      break;
    case kPrintOk:
      result = TdFlagVariant(Context().PrintOk ? 1 : 0);
      break;
    default:
      Context().PrintBlankRows = arguments.Integer16(0);
  }
}

TdResult PrinterObject::DoPrint(TdPrinter* self, TdFlag New_DoPrint, TdString New_PromptString,
                                std::int16_t New_TranType, TdFlag New_OnlyPrintVariantItem,
                                TdFlag New_PrintBorder, TdDispatch** PrintData, TdString TDBillName,
                                TdVariant* /*PrintDevice*/) {
  return Run(self, [=](PrinterObject&) {
    PrintNow(&Printer::DoPrint,
             PrintCallOf(New_DoPrint, New_PromptString, New_TranType, New_OnlyPrintVariantItem,
                         New_PrintBorder, PrintData, TDBillName));
  });
}

TdResult PrinterObject::DoPrint_GroupByArea(TdPrinter* self, TdFlag New_DoPrint,
                                            TdString New_PromptString, std::int16_t New_TranType,
                                            TdFlag New_OnlyPrintVariantItem, TdFlag New_PrintBorder,
                                            TdDispatch** PrintData, TdString TDBillName,
                                            TdVariant* /*PrintDevice*/) {
  return Run(self, [=](PrinterObject&) {
    PrintNow(&Printer::DoPrint_GroupByArea,
             PrintCallOf(New_DoPrint, New_PromptString, New_TranType, New_OnlyPrintVariantItem,
                         New_PrintBorder, PrintData, TDBillName));
  });
}

TdResult PrinterObject::PrintOk(TdPrinter* self, TdFlag* value) {
  if (value == nullptr) return TD_BAD_POINTER;
  return Run(
      self, [value](PrinterObject&) { *value = Context().PrintOk ? TD_TRUE_FLAG : TD_FALSE_FLAG; });
}

TdResult PrinterObject::PrintBlankRows(TdPrinter* self, std::int16_t NewValue) {
  return Run(self, [NewValue](PrinterObject&) { Context().PrintBlankRows = NewValue; });
}

}  // namespace

TdObject* NewPrinterObject() {
  return reinterpret_cast<TdObject*>(static_cast<TdPrinter*>(new PrinterObject));
}

}  // namespace td
