// The columns of the selected items.
#pragma once

#include <QLabel>
#include <QWidget>
#include <vector>

#include "designer/panels/item_groups.h"

namespace td::designer {

// Several items show what they have in common; a change goes into all of them as one step.
class ItemPanel : public QWidget {
 public:
  explicit ItemPanel(Workspace& workspace, QWidget* parent = nullptr);
  ~ItemPanel() override;

 private:
  void LayOut();
  void SelectionChanged();
  void Refresh();

  Workspace& workspace_;
  EditedItems items_;
  QLabel* title_;
  QWidget* groups_;
  std::vector<FieldGroup*> all_;  // in their order in the panel
  KindGroup* kind_;
  PlaceGroup* place_;
  TextGroup* text_;
  FontGroup* font_;
  LineGroup* line_;
  PictureGroup* picture_;
  int documentListener_;
  int selectionListener_;
  int findingsListener_;
};

}  // namespace td::designer
