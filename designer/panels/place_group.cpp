#include <QHBoxLayout>
#include <algorithm>

#include "designer/model/sheet_layout.h"
#include "designer/panels/item_groups.h"
#include "designer/view/words.h"

namespace td::designer {
namespace {

// What the items have in common, or words.
void ShowShared(NumberBox& box, const std::vector<double>& places) {
  const bool isMixed =
      std::ranges::any_of(places, [&](double place) { return place != places.front(); });
  if (places.empty() || isMixed) {
    box.ShowWords(Say("mixed"));
  } else {
    box.ShowNumber(MillimetresOf(places.front()));
  }
}

}  // namespace

PlaceGroup::PlaceGroup(EditedItems& items, Workspace& workspace)
    : FieldGroup(Say("Place and size")), items_(items), workspace_(workspace) {
  AddPair(Say("&Left"), new NumberField(items, "FLeft", kAnyLength), Say("To&p"),
          new NumberField(items, "FTop", kAnyLength));
  AddPair(Say("&Width"), new NumberField(items, "FWidth", kAnyLength), Say("He&ight"),
          new NumberField(items, "FHeight", kAnyLength));
  left_ = MakeSheetBox("SheetLeft", Say("On the sheet, left"), PutLeftOnSheet);
  top_ = MakeSheetBox("SheetTop", Say("On the sheet, top"), PutTopOnSheet);
  sheetRow_ = new QWidget;
  auto* row = new QHBoxLayout(sheetRow_);
  row->setContentsMargins({});
  row->addWidget(left_, 1);
  row->addWidget(top_, 1);
  Form().addRow(Say("On the sheet"), sheetRow_);
  sheetRow_->setToolTip(
      Say("Left and top where they print on a full first page, from the edges of the sheet."));
}

NumberBox* PlaceGroup::MakeSheetBox(const char* name, const QString& label,
                                    Command (*put)(const Format&, const ItemIds&, double)) {
  auto* box = new NumberBox(kAnyLength);
  box->setObjectName(QString::fromUtf8(name));
  box->setAccessibleName(label);
  box->entered = [this, name, put](double millimetres) {
    const Format& format = workspace_.document.Current();
    items_.DoWithin(name, put(format, items_.Ids(), TwipsOf(millimetres)));
  };
  box->left = [this] { items_.EndGesture(); };
  return box;
}

void PlaceGroup::Refresh() {
  FieldGroup::Refresh();
  RefreshSheetRow();
}

// Only where the sheet shows something else than what is stored.
void PlaceGroup::RefreshSheetRow() {
  const SheetLayout layout = LayoutOf(workspace_.document.Current());
  std::vector<double> lefts;
  std::vector<double> tops;
  bool isMoved = false;
  for (const Item* item : items_.Items()) {
    const Point offset = layout.OffsetOf(item->Site());
    lefts.push_back(StoredTwips(item->Place().left + offset.x));
    tops.push_back(StoredTwips(item->Place().top + offset.y));
    isMoved = isMoved || offset != Point{};
  }
  ShowShared(*left_, lefts);
  ShowShared(*top_, tops);
  Form().setRowVisible(sheetRow_, isMoved);
}

}  // namespace td::designer
