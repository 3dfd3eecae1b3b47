#include "service/printer.h"

#include <memory>

#include "policy/error_policy.h"
#include "run/do_printing.h"
#include "service/request.h"
#include "windows/open_window.h"

namespace td {
namespace {

// Rows that can't be cloned still print: one cursor then serves as both. The handler stays in force
// to the end, so that any error which leaves the window has the same effect.
void PrintOnWindow(Platform& platform, const WindowKind& kind) {
  PrintContext& context = Context();
  const Guard guard(
      reactions::kIgnoreAll, [&context] { context.PrintDataClone = context.PrintData; },
      platform.witness);
  guard.Step([&] { context.PrintDataClone = context.PrintData->Clone(); });
  std::unique_ptr<PrintWindow> window;
  guard.Step([&] { window = OpenWindow(platform, context, kind); });
  guard.Step([&] {
    if (!window) throw Failure(kObjectNotSet, "对象变量未设置");
    if (context.New_DoPrint) {
      DoPrinting(*window);
    } else {
      window->frame->ShowModal();
    }
  });
}

// That there is nothing to print is told before anything else.
Turn BeginPrint(const Platform& platform, const RecordsetRef& PrintData) {
  if (!PrintData) throw NothingToPrintFailure();
  return Turn(platform);
}

void StoreRequest(bool New_DoPrint, const std::string& New_PromptString, std::int16_t New_TranType,
                  bool New_OnlyPrintVariantItem, bool New_PrintBorder,
                  const RecordsetRef& PrintData, const std::string& TDBillName) {
  PrintContext& context = Context();
  context.New_DoPrint = New_DoPrint;
  context.New_PromptString = New_PromptString;
  context.New_TranType = New_TranType;
  context.New_OnlyPrintVariantItem = New_OnlyPrintVariantItem;
  context.New_PrintBorder = New_PrintBorder;
  context.TDBillName = TDBillName;
  context.PrintOk = false;
  context.PrintData = PrintData;
}

}  // namespace

Failure NothingToPrintFailure() {
  return {kNothingToPrint, "没有可供打印的数据!"};
}

void Printer::DoPrint(bool New_DoPrint, const std::string& New_PromptString,
                      std::int16_t New_TranType, bool New_OnlyPrintVariantItem,
                      bool New_PrintBorder, const RecordsetRef& PrintData,
                      const std::string& TDBillName, Value* /*PrintDevice*/) {
  const Turn turn = BeginPrint(platform_, PrintData);
  StoreRequest(New_DoPrint, New_PromptString, New_TranType, New_OnlyPrintVariantItem,
               New_PrintBorder, PrintData, TDBillName);
  PrintOnWindow(platform_, kPlainWindow);
}

void Printer::DoPrint_GroupByArea(bool New_DoPrint, const std::string& New_PromptString,
                                  std::int16_t New_TranType, bool New_OnlyPrintVariantItem,
                                  bool New_PrintBorder, const RecordsetRef& PrintData,
                                  const std::string& TDBillName, Value* /*PrintDevice*/) {
  const Turn turn = BeginPrint(platform_, PrintData);
  StoreRequest(New_DoPrint, New_PromptString, New_TranType, New_OnlyPrintVariantItem,
               New_PrintBorder, PrintData, TDBillName);
  PrintOnWindow(platform_, kStockAreaWindow);
}

bool Printer::PrintOk() const {
  platform_.windows.CheckThread();
  return Context().PrintOk;
}

void Printer::PrintBlankRows(std::int16_t NewValue) {
  platform_.windows.CheckThread();
  Context().PrintBlankRows = NewValue;
}

}  // namespace td
