#include "module/printer_object.h"

#include <string>
#include <utility>

#include "module/component.h"
#include "module/remote_recordset.h"
#include "objects/dispatch_object.h"
#include "objects/variant_values.h"
#include "service/printer.h"
#include "service/request.h"

namespace td {
namespace {

enum MemberId : std::int32_t { kDoPrint = 1, kDoPrintGroupByArea, kPrintOk, kPrintBlankRows };

// The arguments of both print methods, but for the one that has no effect.
struct PrintArguments {
  bool New_DoPrint;
  std::string New_PromptString;
  std::int16_t New_TranType;
  bool New_OnlyPrintVariantItem;
  bool New_PrintBorder;
  Reference<TdDispatch> PrintData;
  std::string TDBillName;
};

using PrintMethod = decltype(&Printer::DoPrint);

void Print(PrintMethod method, PrintArguments arguments) {
  // Before the platform is made, which reads files and can fail.
  if (arguments.PrintData.Get() == nullptr) throw NothingToPrintFailure();
  Printer printer(Component::Get().ThePlatform());
  (printer.*method)(arguments.New_DoPrint, arguments.New_PromptString, arguments.New_TranType,
                    arguments.New_OnlyPrintVariantItem, arguments.New_PrintBorder,
                    RecordsetOf(std::move(arguments.PrintData)), arguments.TDBillName, nullptr);
}

class PrinterObject final : public DispatchObject<PrinterObject, TdPrinter> {
 public:
  PrinterObject() : DispatchObject(&kTable) {}

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
  static const std::vector<const char*> printArguments = {
      "New_DoPrint",     "New_PromptString", "New_TranType", "New_OnlyPrintVariantItem",
      "New_PrintBorder", "PrintData",        "TDBillName",   "PrintDevice"};
  static const Members members = {
      {"DoPrint", kDoPrint, TD_CALL_METHOD, printArguments, 6},
      {"DoPrint_GroupByArea", kDoPrintGroupByArea, TD_CALL_METHOD, printArguments, 6},
      {"PrintOk", kPrintOk, TD_CALL_GET, {}},
      {"PrintBlankRows", kPrintBlankRows, TD_CALL_PUT, {"NewValue"}, 1}};
  return members;
}

PrintArguments InOrder(const CallArguments& given) {
  return {given.Flag(0), given.Text(1),   given.Integer16(2), given.Flag(3),
          given.Flag(4), given.Object(5), given.Text(6)};
}

void PrinterObject::Call(std::int32_t member, const CallArguments& arguments, TdVariant& result) {
  switch (member) {
    case kDoPrint:
      Print(&Printer::DoPrint, InOrder(arguments));
      break;
    case kDoPrintGroupByArea:
      Print(&Printer::DoPrint_GroupByArea, InOrder(arguments));
      break;
    case kPrintOk:
      result = TdFlagVariant(Context().PrintOk ? 1 : 0);
      break;
    default:
      Context().PrintBlankRows = arguments.Integer16(0);
  }
}

Reference<TdDispatch> DataOf(TdDispatch** PrintData) {
  return PrintData == nullptr ? Reference<TdDispatch>() : Reference<TdDispatch>::To(*PrintData);
}

TdResult PrinterObject::DoPrint(TdPrinter* self, TdFlag New_DoPrint, TdString New_PromptString,
                                std::int16_t New_TranType, TdFlag New_OnlyPrintVariantItem,
                                TdFlag New_PrintBorder, TdDispatch** PrintData, TdString TDBillName,
                                TdVariant* /*PrintDevice*/) {
  return Run(self, [=](PrinterObject&) {
    Print(&Printer::DoPrint,
          {New_DoPrint != 0, TextOf(New_PromptString), New_TranType, New_OnlyPrintVariantItem != 0,
           New_PrintBorder != 0, DataOf(PrintData), TextOf(TDBillName)});
  });
}

TdResult PrinterObject::DoPrint_GroupByArea(TdPrinter* self, TdFlag New_DoPrint,
                                            TdString New_PromptString, std::int16_t New_TranType,
                                            TdFlag New_OnlyPrintVariantItem, TdFlag New_PrintBorder,
                                            TdDispatch** PrintData, TdString TDBillName,
                                            TdVariant* /*PrintDevice*/) {
  return Run(self, [=](PrinterObject&) {
    Print(&Printer::DoPrint_GroupByArea,
          {New_DoPrint != 0, TextOf(New_PromptString), New_TranType, New_OnlyPrintVariantItem != 0,
           New_PrintBorder != 0, DataOf(PrintData), TextOf(TDBillName)});
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
