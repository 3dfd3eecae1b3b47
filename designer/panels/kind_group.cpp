#include <QSignalBlocker>
#include <algorithm>

#include "designer/panels/item_groups.h"
#include "designer/view/words.h"
#include "items/lines_and_pictures.h"
#include "text/conversions.h"

namespace td::designer {
namespace {

std::vector<Code> Kinds() {
  return {{0, Say("Text or value")}, {1, Say("Line")}, {2, Say("Picture file")}};
}

std::vector<Code> Bands() {
  std::vector<Code> bands;
  for (const ItemSite site : kAllSites) {
    const int code = static_cast<int>(site);
    bands.push_back({code, QString::number(code) + u' ' + NameOfBand(code)});
  }
  return bands;
}

}  // namespace

KindGroup::KindGroup(EditedItems& items, Workspace& workspace)
    : FieldGroup(Say("Kind and band")), items_(items) {
  Add(Say("&Kind"), new CodeField(items, "FTypeID", Kinds()));
  auto* band = new CodeField(items, "FSite", Bands());
  band->chosen = [&items, &workspace](int site) {
    items.Do(ChangeBand(workspace.document.Current(), items.Ids(), static_cast<ItemSite>(site)));
  };
  Add(Say("&Band"), band, Say("The item stays where the sheet shows it."));
  AddWide(new FlagField(items, "FIsVariant", Say("Is a value")),
          Say("Prints on pre-printed forms, too, where labels and lines stay away."));
  AddWide(new FlagField(items, "FMustPrint", Say("Prints on pre-printed forms, too")),
          Say("A label or line that the form lacks."));
  hidden_ = new QCheckBox(Say("Hidden"));
  hidden_->setObjectName(QStringLiteral("Hidden"));
  connect(hidden_, &QCheckBox::clicked, this, [this, &workspace](bool hide) {
    items_.Do(HideItems(workspace.document.Current(), items_.Ids(), hide));
    Refresh();
  });
  Form().addRow(hidden_);
}

void KindGroup::Refresh() {
  FieldGroup::Refresh();
  const QSignalBlocker blocker(hidden_);
  const std::vector<const Item*> items = items_.Items();
  const auto hidden =
      std::ranges::count_if(items, [](const Item* item) { return IsHidden(*item); });
  const bool isMixed = hidden > 0 && hidden < static_cast<std::ptrdiff_t>(items.size());
  const bool canHide = std::ranges::any_of(items, [](const Item* item) { return CanHide(*item); });
  hidden_->setTristate(isMixed);
  hidden_->setCheckState(isMixed ? Qt::PartiallyChecked : hidden > 0 ? Qt::Checked : Qt::Unchecked);
  hidden_->setEnabled(canHide);
  hidden_->setToolTip(canHide ? Say("Keeps the item off the paper by a negative left edge.")
                              : Say("The head prints all of its items."));
}

LineGroup::LineGroup(EditedItems& items) : FieldGroup(Say("Line")), items_(items) {
  Add(Say("Thick&ness"), new NumberField(items, "Fborderwidth", {NumberUnit::kNone, 0, 1, 100, 1}));
  thickness_ = AddNote();
}

void LineGroup::Refresh() {
  FieldGroup::Refresh();
  const SharedValue width = items_.Shared("Fborderwidth");
  const bool isKnown = !width.isMixed && (IsNull(width.value) || IsNumeric(width.value));
  const double pen = isKnown ? PenWidthOf(width.value) : 0;
  thickness_->setText(isKnown ? Say("Prints %1 mm thick.").arg(MillimetresOf(pen), 0, 'f', 2)
                              : QString());
}

}  // namespace td::designer
