// What can be put onto the sheet.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QWidget>
#include <optional>
#include <vector>

#include "designer/view/workspace.h"

class QTreeWidgetItem;

namespace td::designer {

class PaletteTree;

// A choice is dragged to its place, or by a double click or Enter put into the middle of what is
// seen. With a band chosen, it goes into that one, and what doesn't print there is grey and stays.
class PalettePanel : public QWidget {
 public:
  explicit PalettePanel(Workspace& workspace, QWidget* parent = nullptr);
  ~PalettePanel() override;

 private:
  void LayOut();
  void Fill();
  void AddChoice(QTreeWidgetItem* group, const DroppedChoice& choice, const QString& name);
  QTreeWidgetItem* AddGroup(const QString& name);
  void ShowBand();
  void Filter();
  void Describe();
  void Place(const QTreeWidgetItem* entry);
  [[nodiscard]] std::optional<ItemSite> Band() const;
  [[nodiscard]] QString ReasonAgainstHere(const DroppedChoice& choice) const;

  Workspace& workspace_;
  QLineEdit* filter_;
  QComboBox* band_;
  PaletteTree* tree_;
  QLabel* description_;
  std::vector<DroppedChoice> choices_;  // in the order of the tree's entries
  int listener_;
};

}  // namespace td::designer
