// What the checker finds in the format, while it is being edited.
#pragma once

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

#include "designer/view/workspace.h"

namespace td::designer {

// A moment after the last change the format is checked again; not while the mouse drags something.
// Enter or a double click goes to the item of a finding.
class FindingsPanel : public QWidget {
 public:
  explicit FindingsPanel(Workspace& workspace, QWidget* parent = nullptr);
  ~FindingsPanel() override;

  // Now, and not a moment later.
  void Check();

 private:
  void LayOut();
  void CheckSoon();
  void ShowFindings();
  void ShowCounts();
  void Explain();
  [[nodiscard]] const FormatFinding* FindingAt(int row) const;

  Workspace& workspace_;
  QTimer soon_;
  int cost_ = 0;  // milliseconds that the last check took
  QLabel* counts_;
  QListWidget* list_;
  QLabel* explanation_;
  int documentListener_;
  int findingsListener_;
};

}  // namespace td::designer
