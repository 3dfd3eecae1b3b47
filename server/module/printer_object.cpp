#include "module/printer_object.h"

#include <utility>

#include "desktop/desktop_platform.h"
#include "module/component.h"
#include "module/printing_object.h"
#include "module/remote_recordset.h"

namespace td {
namespace {

class PrinterObject final : public PrintingObject<PrinterObject, TdPrinter> {
  friend PrintingObject;

 public:
  PrinterObject() : PrintingObject(&kTable) {}

  static const TdGuid& OwnInterface() { return kTdPrinterId; }
  static bool Has(const TdGuid& id) {
    return SameGuid(id, kTdDispatchId) || SameGuid(id, kTdPrinterId);
  }
  static void Enter() { Component::Get().CheckThread(); }
  static const Members& AllMembers() {
    static const Members members = PrintMembers();
    return members;
  }

  void Call(std::int32_t member, const CallArguments& arguments, TdVariant& result) {
    CallPrintMember(member, arguments, result);
  }

 private:
  static void Print(PrintMethod method, PrintCall call) {
    RequireData(call);
    Platform& platform = Component::Get().Desktop().Get();
    td::Print(method, call, platform, RecordsetOf(std::move(call.PrintData)));
  }

  static const TdPrinterTable kTable;

  Use use_;
};

const TdPrinterTable PrinterObject::kTable = TableWith<TdPrinterTable>();

}  // namespace

TdObject* NewPrinterObject() {
  return reinterpret_cast<TdObject*>(static_cast<TdPrinter*>(new PrinterObject));
}

}  // namespace td
