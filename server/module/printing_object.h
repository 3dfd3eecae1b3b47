// What the classes have in common that print: four operations, by name and directly.
#pragma once

#include <cstdint>

#include "module/print_call.h"
#include "objects/dispatch_object.h"
#include "objects/variant_values.h"
#include "service/request.h"

namespace td {

enum PrintMember : std::int32_t { kDoPrint = 1, kDoPrintGroupByArea, kPrintOk, kPrintBlankRows };

// The four by name.
[[nodiscard]] Members PrintMembers();

// The base of a class whose interface begins as TdPrinter does. Beside what DispatchObject asks
// for, `Object` has
//   void Print(PrintMethod, PrintCall)
// and, where Enter lets other threads than the owner in, a RunOwned of its own.
template <class Object, class Interface>
class PrintingObject : public DispatchObject<Object, Interface> {
  using Base = DispatchObject<Object, Interface>;

 protected:
  using Base::Base;
  ~PrintingObject() = default;

  // Runs a direct operation on the owner's thread.
  template <class Operation>
  static TdResult RunOwned(Interface* self, Operation operation) noexcept {
    return Base::Run(self, operation);
  }

  // Calls one of the four; false if the member is another one.
  bool CallPrintMember(std::int32_t member, const CallArguments& arguments, TdVariant& result) {
    switch (member) {
      case kDoPrint:
        Self().Print(&Printer::DoPrint, PrintCallOf(arguments));
        return true;
      case kDoPrintGroupByArea:
        Self().Print(&Printer::DoPrint_GroupByArea, PrintCallOf(arguments));
        return true;
      case kPrintOk:
        result = TdFlagVariant(Context().PrintOk ? 1 : 0);
        return true;
      case kPrintBlankRows:
        Context().PrintBlankRows = arguments.Integer16(0);
        return true;
      default:
        return false;
    }
  }

  template <PrintMethod method>
  static TdResult TD_CALL DirectPrint(Interface* self, TdFlag New_DoPrint,
                                      TdString New_PromptString, std::int16_t New_TranType,
                                      TdFlag New_OnlyPrintVariantItem, TdFlag New_PrintBorder,
                                      TdDispatch** PrintData, TdString TDBillName,
                                      TdVariant* /*PrintDevice*/) {
    return Object::RunOwned(self, [&](Object& object) {
      object.Print(
          method, PrintCallOf(New_DoPrint, New_PromptString, New_TranType, New_OnlyPrintVariantItem,
                              New_PrintBorder, PrintData, TDBillName));
    });
  }
  static TdResult TD_CALL PrintOk(Interface* self, TdFlag* value) {
    if (value == nullptr) return TD_BAD_POINTER;
    return Object::RunOwned(
        self, [value](Object&) { *value = Context().PrintOk ? TD_TRUE_FLAG : TD_FALSE_FLAG; });
  }
  static TdResult TD_CALL PrintBlankRows(Interface* self, std::int16_t NewValue) {
    return Object::RunOwned(self, [NewValue](Object&) { Context().PrintBlankRows = NewValue; });
  }

  // The table of a class: the operations that all have, and then its own.
  template <class Table, class... Own>
  static constexpr Table TableWith(Own... own) {
    return {Base::QueryInterface,
            Base::AddRef,
            Base::Release,
            Base::GetTypeInfoCount,
            Base::GetTypeInfo,
            Base::GetIDsOfNames,
            Base::Invoke,
            DirectPrint<&Printer::DoPrint>,
            DirectPrint<&Printer::DoPrint_GroupByArea>,
            PrintOk,
            PrintBlankRows,
            own...};
  }

 private:
  Object& Self() { return static_cast<Object&>(*this); }
};

}  // namespace td
