// The labelled fields of a dialog, one below the other.
#pragma once

#include <QGridLayout>

#include "dialogs/dialog_contents.h"
#include "qt/dialogs/dialog_window.h"

namespace td {

// The labels end, and the fields, units and hints begin, on common lines.
class FieldGrid : public QGridLayout {
 public:
  // The window makes and owns the controls; the grid is still to be put into its layout.
  explicit FieldGrid(DialogWindow& window);

  void AddField(const ListField& field);
  void AddField(const NumberField& field);

 private:
  void AddLabel(const QString& text, QWidget* field);

  DialogWindow& window_;
  int row_ = 0;
};

}  // namespace td
