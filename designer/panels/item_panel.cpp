#include "designer/panels/item_panel.h"

#include <QVBoxLayout>
#include <algorithm>

#include "designer/panels/panel_scroll.h"
#include "designer/view/words.h"
#include "qt/fields/wheel_guard.h"

namespace td::designer {

ItemPanel::ItemPanel(Workspace& workspace, QWidget* parent)
    : QWidget(parent), workspace_(workspace), items_(workspace) {
  kind_ = new KindGroup(items_, workspace);
  place_ = new PlaceGroup(items_, workspace);
  text_ = new TextGroup(items_, workspace);
  font_ = new FontGroup(items_);
  line_ = new LineGroup(items_);
  picture_ = new PictureGroup(items_);
  LayOut();
  documentListener_ = workspace.document.AddListener([this](const DocumentChange&) { Refresh(); });
  selectionListener_ = workspace.selection.AddListener([this] { SelectionChanged(); });
  findingsListener_ = workspace.findings.AddListener([this] { Refresh(); });
  SelectionChanged();
  GuardFieldsAgainstWheel(*this);
}

ItemPanel::~ItemPanel() {
  workspace_.document.RemoveListener(documentListener_);
  workspace_.selection.RemoveListener(selectionListener_);
  workspace_.findings.RemoveListener(findingsListener_);
  // A field that still has the focus tells that it is left, to what is still there.
  delete groups_;
}

void ItemPanel::LayOut() {
  title_ = MakeNote(this);
  title_->setObjectName(QStringLiteral("ItemTitle"));
  title_->setForegroundRole(QPalette::WindowText);
  groups_ = new QWidget;
  groups_->setObjectName(QStringLiteral("PanelContent"));
  auto* column = new QVBoxLayout(groups_);
  all_ = {text_, place_, font_, line_, picture_, kind_};
  for (FieldGroup* group : all_) column->addWidget(group);
  column->addStretch();
  auto* whole = new QVBoxLayout(this);
  title_->setContentsMargins(column->contentsMargins());
  whole->setContentsMargins({});
  whole->setSpacing(0);
  whole->addWidget(title_);
  whole->addWidget(MakePanelScroll(groups_), 1);
}

// What is being typed belongs to the items that were selected when it was.
void ItemPanel::SelectionChanged() {
  for (FieldGroup* group : all_) group->FinishTyping();
  items_.Take(workspace_.selection.Items());
  Refresh();
}

void ItemPanel::Refresh() {
  const std::vector<const Item*> items = items_.Items();
  const auto hasKind = [&](ItemKind kind) {
    return std::ranges::any_of(items, [&](const Item* item) { return item->Kind() == kind; });
  };
  groups_->setVisible(!items.empty());
  if (items.empty()) {
    title_->setText(Say("Click an item on the sheet to see its columns here."));
    return;
  }
  title_->setText(items.size() == 1 ? NameOfItem(*items.front())
                                    : Say("%1 items").arg(items.size()));
  text_->setVisible(hasKind(ItemKind::kText));
  font_->setVisible(hasKind(ItemKind::kText));
  line_->setVisible(hasKind(ItemKind::kLine));
  picture_->setVisible(hasKind(ItemKind::kPicture));
  for (FieldGroup* group : all_) {
    if (!group->isHidden()) group->Refresh();
  }
}

}  // namespace td::designer
