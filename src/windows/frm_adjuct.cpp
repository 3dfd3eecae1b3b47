#include "windows/frm_adjuct.h"

#include "policy/error_policy.h"
#include "store/query.h"
#include "store/statements.h"
#include "text/conversions.h"
#include "windows/printer_list.h"

namespace td {
namespace {

struct BoundControl {
  const char* control;
  const char* column;
};

constexpr BoundControl kLeftBox{controls::kLeft, "FAdjuctLeft"};
constexpr BoundControl kOtherBoxes[] = {{controls::kTop, "FAdjuctTop"},
                                        {controls::kHeader, "FAdjuctHeader"},
                                        {controls::kRowHeight, "FRowHeight"},
                                        {controls::kRowsPerPage, "FRowsPerPage"},
                                        {controls::kQtysPerRow, "FQtysPerRow"}};
constexpr BoundControl kHeaderCheck{controls::kHeaderPerPage, "FHeaderPerPage"};
constexpr BoundControl kFooterCheck{controls::kFooterPerPage, "FFooterPerPage"};
constexpr BoundControl kIntegralCheck{controls::kIntegralPage, "FIntegralPage"};

// The controls of the dialog, filled from one format row. A Null leaves its text box as it was.
struct FormatView {
  Dialog& dialog;
  const Guard& guard;
  Query& format;

  void ShowText(const BoundControl& box) const {
    guard.Step([&] { dialog.PutText(box.control, ToLoneText(format.Field(box.column))); });
  }
  void ShowCheck(const BoundControl& box) const {
    guard.Step([&] { dialog.PutCheckValue(box.control, IsSet(format.Field(box.column)) ? 1 : 0); });
  }
  // The whole list is walked, so the last entry of that name stands.
  void ShowPrinter() const {
    if (!guard.Test([&] { return !IsNull(format.Field("FPrintDevice")); })) return;
    for (int i = 0; i < dialog.ListCount(controls::kPrinterList); ++i) {
      const auto isPrinter = [&] {
        return dialog.ListItem(controls::kPrinterList, i) == ToText(format.Field("FPrintDevice"));
      };
      if (guard.Test(isPrinter))
        guard.Step([&] { dialog.PutListIndex(controls::kPrinterList, i); });
    }
  }
  void ShowShared() const {
    for (const BoundControl& box : kOtherBoxes) ShowText(box);
    ShowCheck(kHeaderCheck);
    ShowCheck(kFooterCheck);
  }
};

// At opening, unlike later, a Null left offset shows 0, the check box for empty rows is only ever
// set, and the orientation is left to the selection of the format.
void ShowFirstFormat(const FormatView& view) {
  Dialog& dialog = view.dialog;
  const Guard& guard = view.guard;
  Query& format = view.format;
  guard.Step([&] { dialog.PutListIndex(controls::kPrinterList, kDefaultPrinterIndex); });
  guard.Step([&] {
    const Value& left = format.Field(kLeftBox.column);
    dialog.PutText(kLeftBox.control, IsNull(left) ? "0" : ToText(left));
  });
  view.ShowShared();
  if (guard.Test([&] { return IsSet(format.Field(kIntegralCheck.column)); })) {
    guard.Step([&] { dialog.PutCheckValue(kIntegralCheck.control, 1); });
  }
  view.ShowPrinter();
}

// Selecting an entry shows its format. The selected format is remembered and shown at the end
// unless the caller named one; a format without a name is not in the list, so it can't be.
void FillFormatList(Dialog& dialog, const Guard& guard, const std::string& wantedName,
                    Query& formats) {
  int remembered = 0;
  while (guard.Test([&] { return !formats.Eof(); })) {
    bool isListed = false;
    guard.Step([&] {
      dialog.AddItem(controls::kFormats, ToLoneText(formats.Field("FTDBillName")));
      isListed = true;
    });
    const auto isSelected = [&] {
      const Value& selected = formats.Field("FSelected");
      return !IsNull(selected) && ToDouble(selected) == 1;
    };
    if (guard.Test(isSelected) && isListed) {
      guard.Step([&] { remembered = dialog.ListCount(controls::kFormats) - 1; });
    }
    const auto isAskedFor = [&] {
      const Value& name = formats.Field("FTDBillName");
      return !IsNull(name) && ToText(name) == wantedName;
    };
    if (guard.Test(isAskedFor)) {
      guard.Step([&] {
        dialog.PutListIndex(controls::kFormats, dialog.ListCount(controls::kFormats) - 1);
      });
    }
    guard.Step([&] { formats.MoveNext(); });
  }
  if (dialog.ListCount(controls::kFormats) > remembered && wantedName.empty()) {
    guard.Step([&] { dialog.PutListIndex(controls::kFormats, remembered); });
  }
}

OverlaySettings ReadSettings(Dialog& dialog) {
  const auto number = [&](const char* box) { return Val(std::string_view(dialog.Text(box))); };
  const auto check = [&](const BoundControl& box) {
    return dialog.CheckValue(box.control) == 1 ? 1 : 0;
  };
  const bool isRealPrinter = dialog.ListIndex(controls::kPrinterList) >= kFirstPrinterIndex;
  return {
      .AdjuctLeft = number(controls::kLeft),
      .AdjuctTop = number(controls::kTop),
      .AdjuctHeader = number(controls::kHeader),
      .RowHeight = number(controls::kRowHeight),
      .RowsPerPage = number(controls::kRowsPerPage),
      .QtysPerRow = number(controls::kQtysPerRow),
      .Orientation = dialog.Option(controls::kOrientation) == kPortrait ? kPortrait : kLandscape,
      .HeaderPerPage = check(kHeaderCheck),
      .FooterPerPage = check(kFooterCheck),
      .IntegralPage = check(kIntegralCheck),
      .PrintDevice = isRealPrinter ? dialog.ListText(controls::kPrinterList) : std::string()};
}

}  // namespace

frmAdjuct::frmAdjuct(Platform& platform, PrintContext& request)
    : platform_(platform), request_(request), dialog_(platform.windows.CreateDialog("frmAdjuct")) {
  dialog_->Connect({.Load = [this] { Load(); },
                    .Click = [this](std::string_view control) { Click(control); },
                    .Unload = [this] { request_.TDBillName.clear(); }});
}

void frmAdjuct::ShowModal() {
  dialog_->ShowModal();
}

void frmAdjuct::Load() {
  RunRoutine(Guard(reactions::kSettingsLoad), platform_.messages, [&](const Guard& guard) {
    FillPrinterList(*dialog_, guard);
    Query formats(platform_, request_);
    guard.Step([&] { formats.Open(FormatsStatement(request_)); });
    if (guard.Test([&] { return !formats.Eof(); })) ShowFirstFormat({*dialog_, guard, formats});
    FillFormatList(*dialog_, guard, request_.TDBillName, formats);
    guard.Step([&] { formats.Close(); });
  });
}

void frmAdjuct::Click(std::string_view control) {
  if (control == controls::kFormats) ChangeFormat();
  if (control == controls::kConfirm) Save();
  if (control == controls::kLeave) Cancel();
}

void frmAdjuct::ChangeFormat() {
  RunRoutine(Guard(reactions::kSettingsLoad), platform_.messages, [&](const Guard& guard) {
    Query format(platform_, request_);
    guard.Step([&] {
      format.Open(FormatSettingsStatement(request_, dialog_->ListText(controls::kFormats)));
    });
    if (guard.Test([&] { return !format.Eof(); })) {
      const FormatView view{*dialog_, guard, format};
      guard.Step([&] { dialog_->PutListIndex(controls::kPrinterList, kDefaultPrinterIndex); });
      view.ShowText(kLeftBox);
      view.ShowShared();
      view.ShowCheck(kIntegralCheck);
      guard.Step([&] {
        dialog_->PutOption(controls::kOrientation, ToInteger16(format.Field("FOrientation")));
      });
      view.ShowPrinter();
    }
    guard.Step([&] { format.Close(); });
  });
}

void frmAdjuct::Save() {
  RunRoutine(Guard(reactions::kSettingsSave), platform_.messages, [&](const Guard& guard) {
    std::unique_ptr<Connection> connection;
    guard.Step([&] { connection = platform_.database.Connect(request_.New_PromptString); });
    guard.Step([&] { connection->Execute(ClearSelectionStatement(request_)); });
    guard.Step([&] {
      connection->Execute(SaveOverlaySettingsStatement(
          request_, dialog_->ListText(controls::kFormats), ReadSettings(*dialog_)));
    });
    connection.reset();
    guard.Step([&] { dialog_->Unload(); });
    isOk_ = true;
    if (dialog_->ListIndex(controls::kFormats) == -1) {
      request_.TDBillName = dialog_->ListText(controls::kFormats);
    }
  });
}

void frmAdjuct::Cancel() {
  isOk_ = false;
  dialog_->Unload();
}

}  // namespace td
