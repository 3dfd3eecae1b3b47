#include "service/printer.h"

#include <memory>

#include "run/do_printing.h"
#include "service/print_context.h"
#include "store/error_policy.h"
#include "windows/print_window.h"

namespace td {

void Printer::DoPrint(bool New_DoPrint, const std::string& New_PromptString,
                      std::int16_t New_TranType, bool New_OnlyPrintVariantItem,
                      bool New_PrintBorder, const RecordsetRef& PrintData,
                      const std::string& TDBillName, Value* /*PrintDevice*/) {
  if (!PrintData) throw Failure(kNothingToPrint, "没有可供打印的数据!");

  PrintContext& context = Context();
  context.New_DoPrint = New_DoPrint;
  context.New_PromptString = New_PromptString;
  context.New_TranType = New_TranType;
  context.New_OnlyPrintVariantItem = New_OnlyPrintVariantItem;
  context.New_PrintBorder = New_PrintBorder;
  context.TDBillName = TDBillName;
  context.PrintOk = false;
  context.PrintData = PrintData;

  // Rows that can't be cloned still print: one cursor then serves as both. The handler stays in
  // force to the end, so that any error which leaves the window has the same effect.
  const Guard guard(reactions::kIgnoreAll,
                    [&context] { context.PrintDataClone = context.PrintData; });
  guard.Step([&] { context.PrintDataClone = context.PrintData->Clone(); });
  std::unique_ptr<PrintWindow> window;
  guard.Step([&] { window = std::make_unique<PrintWindow>(platform_); });
  guard.Step([&] {
    if (!window) throw Failure(kObjectNotSet, "对象变量未设置");
    if (New_DoPrint) {
      DoPrinting(*window);
    } else {
      window->frame->ShowModal();
    }
  });
}

bool Printer::PrintOk() const {
  return Context().PrintOk;
}

void Printer::PrintBlankRows(std::int16_t NewValue) {
  Context().PrintBlankRows = NewValue;
}

}  // namespace td
