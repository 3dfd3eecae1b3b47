#include "windows/frm_area_print_set.h"

#include "policy/error_policy.h"
#include "store/query.h"
#include "text/conversions.h"
#include "windows/printer_list.h"

namespace td {
namespace {

struct BillType {
  const char* name;
  int tranType;
};

constexpr BillType kBillTypes[] = {{"采购入库单", 12}, {"销售订货单", 21}, {"销售出库单", 22}};

int TranTypeOf(const std::string& name) {
  for (const BillType& type : kBillTypes) {
    if (name == type.name) return type.tranType;
  }
  return 0;
}

// Rows of one first character are adjacent, so each is added once; the empty area never is, and a
// Null is no area that differs.
void FillAreaList(Dialog& dialog, const Guard& guard, Query& areas) {
  std::string previous;
  while (guard.Test([&] { return !areas.Eof(); })) {
    const auto isNext = [&] {
      const Value& area = areas.Field("FStockArea");
      return !IsNull(area) && ToText(area) != previous;
    };
    if (guard.Test(isNext)) {
      guard.Step([&] { previous = ToLoneText(areas.Field("FStockArea")); });
      guard.Step([&] { dialog.AddItem(controls::kStockAreas, previous); });
    }
    guard.Step([&] { areas.MoveNext(); });
  }
}

void SelectPrinter(Dialog& dialog, const Guard& guard, Query& row) {
  for (int i = kSeparatorIndex; i < dialog.ListCount(controls::kPrinterList); ++i) {
    const auto isPrinter = [&] {
      const Value& printer = row.Field("FPrintDevice");
      return !IsNull(printer) && dialog.ListItem(controls::kPrinterList, i) == ToText(printer);
    };
    if (guard.Test(isPrinter)) {
      guard.Step([&] { dialog.PutListIndex(controls::kPrinterList, i); });
      return;
    }
  }
}

}  // namespace

frmAreaPrintSet::frmAreaPrintSet(Platform& platform, const PrintContext& request)
    : platform_(platform),
      request_(request),
      dialog_(platform.windows.CreateDialog("frmAreaPrintSet")) {
  dialog_->Connect({.Load = [this] { Load(); },
                    .Click = [this](std::string_view control) { Click(control); },
                    .Unload = [] {}});
}

void frmAreaPrintSet::ShowModal() {
  dialog_->ShowModal();
}

void frmAreaPrintSet::Load() {
  RunRoutine(Guard(reactions::kAreaPrinterLoad), platform_.messages, [&](const Guard& guard) {
    for (const BillType& type : kBillTypes) {
      guard.Step([&] { dialog_->AddItem(controls::kBillTypes, type.name); });
    }
    guard.Step([&] { dialog_->PutListIndex(controls::kBillTypes, 0); });
    FillPrinterList(*dialog_, guard);
    Query areas(platform_, request_);
    guard.Step([&] { areas.Open(StockAreasStatement()); });
    FillAreaList(*dialog_, guard, areas);
    guard.Step([&] { areas.Close(); });
  });
}

void frmAreaPrintSet::Click(std::string_view control) {
  if (control == controls::kBillTypes) ChangeBillType();
  if (control == controls::kAreaFormats || control == controls::kStockAreas) ShowAreaPrinter();
  if (control == controls::kConfirm) Save();
  if (control == controls::kLeave) dialog_->Unload();
}

void frmAreaPrintSet::ChangeBillType() {
  RunRoutine(Guard(reactions::kMessageOnly), platform_.messages, [&](const Guard& guard) {
    guard.Step([&] {
      const int tranType = TranTypeOf(dialog_->ListText(controls::kBillTypes));
      dialog_->ClearList(controls::kAreaFormats);
      Query formats(platform_, request_);
      formats.Open(FormatNamesStatement(tranType));
      for (; !formats.Eof(); formats.MoveNext()) {
        dialog_->AddItem(controls::kAreaFormats, ToLoneText(formats.Field("FTDBillName")));
      }
    });
  });
}

AreaPrinterKey frmAreaPrintSet::SelectedKey() {
  return {.tranType = TranTypeOf(dialog_->ListText(controls::kBillTypes)),
          .formatName = dialog_->ListText(controls::kAreaFormats),
          .stockArea = dialog_->ListText(controls::kStockAreas)};
}

// An unknown combination leaves the selection of the printer as it was.
void frmAreaPrintSet::ShowAreaPrinter() {
  RunRoutine(Guard(reactions::kMessageOnly), platform_.messages, [&](const Guard& guard) {
    Query row(platform_, request_);
    guard.Step(
        [&] { row.Open(AreaPrinterStatement(platform_.machine.LocalMachineId(), SelectedKey())); });
    if (guard.Test([&] { return !row.Eof(); })) SelectPrinter(*dialog_, guard, row);
    guard.Step([&] { row.Close(); });
  });
}

// Only the first entry of the printer list is stored as no printer: the separator line, if picked,
// is stored as its text.
void frmAreaPrintSet::Save() {
  RunRoutine(Guard(reactions::kMessageOnly), platform_.messages, [&](const Guard& guard) {
    guard.Step([&] {
      const AreaPrinterKey key = SelectedKey();
      const auto connection = platform_.database.Connect(request_.New_PromptString);
      Machine& machine = platform_.machine;
      connection->Execute(ClearAreaPrinterStatement(machine.LocalMachineId(), key));
      const bool isDefault = dialog_->ListIndex(controls::kPrinterList) == kDefaultPrinterIndex;
      connection->Execute(SaveAreaPrinterStatement(
          machine.LocalMachineId(), key,
          isDefault ? std::string() : dialog_->ListText(controls::kPrinterList)));
    });
    guard.Step([&] { platform_.messages.ShowBox("保存成功！", kInformationIcon); });
  });
}

}  // namespace td
