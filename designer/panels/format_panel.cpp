#include "designer/panels/format_panel.h"

#include <QVBoxLayout>

#include "designer/panels/format_groups.h"
#include "designer/panels/panel_scroll.h"
#include "qt/fields/wheel_guard.h"

namespace td::designer {

FormatPanel::FormatPanel(Workspace& workspace, QWidget* parent)
    : QWidget(parent), workspace_(workspace), rows_(workspace) {
  groups_ = {new NameGroup(rows_, workspace),    new PaperGroup(rows_, workspace),
             new RowsGroup(rows_, workspace),    new OffsetGroup(rows_),
             new PrinterGroup(rows_, workspace), new UnusedGroup(rows_)};
  content_ = new QWidget;
  auto* column = new QVBoxLayout(content_);
  for (FieldGroup* group : groups_) column->addWidget(group);
  column->addStretch();
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins({});
  whole->addWidget(MakePanelScroll(content_));
  listener_ = workspace.document.AddListener([this](const DocumentChange& change) {
    if (change.format) Refresh();
  });
  Refresh();
  GuardFieldsAgainstWheel(*this);
}

FormatPanel::~FormatPanel() {
  workspace_.document.RemoveListener(listener_);
  // A field that still has the focus tells that it is left, to what is still there.
  delete content_;
}

void FormatPanel::Refresh() {
  for (FieldGroup* group : groups_) group->Refresh();
}

}  // namespace td::designer
