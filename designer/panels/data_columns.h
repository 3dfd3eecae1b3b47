// The columns of the print data, as they were read with the window.
#pragma once

#include <QListWidget>
#include <vector>

#include "designer/view/workspace.h"

namespace td::designer {

// Each with its value in the first row. One is dragged onto the sheet as a variable; what isn't a
// variable yet becomes one.
class DataColumns : public QListWidget {
 public:
  explicit DataColumns(Workspace& workspace, QWidget* parent = nullptr);

  void Refresh();
  [[nodiscard]] DroppedChoice ChoiceAt(int row) const;
  // The columns that are selected and no variables yet.
  [[nodiscard]] std::vector<std::string> SelectedNewOnes() const;

 protected:
  [[nodiscard]] QMimeData* mimeData(const QList<QListWidgetItem*>& entries) const override;

 private:
  Workspace& workspace_;
};

}  // namespace td::designer
