// The columns of the format itself: its sheet, its rows, its printer.
#pragma once

#include <QWidget>
#include <vector>

#include "designer/panels/field_group.h"

namespace td::designer {

class FormatPanel : public QWidget {
 public:
  explicit FormatPanel(Workspace& workspace, QWidget* parent = nullptr);
  ~FormatPanel() override;

 private:
  void Refresh();

  Workspace& workspace_;
  EditedFormat rows_;
  QWidget* content_;
  std::vector<FieldGroup*> groups_;
  int listener_;
};

}  // namespace td::designer
