// The panel of the scan: loading it, its place, its opacity.
#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "designer/sheet/sheet_view.h"

class QCheckBox;
class QDoubleSpinBox;
class QLabel;
class QPushButton;
class QSlider;

namespace td::designer {

class ScanPanel : public QWidget {
 public:
  // `loaded` is called when there is another picture, or none. The view outlives the panel.
  ScanPanel(SheetView& view, std::function<void()> loaded, QWidget* parent = nullptr);

  // Loads a file without asking for it; what can't be read is told.
  void Load(const std::string& path);
  // Shows what the view has.
  void ShowAids();

 private:
  void AskForFile();
  void Remove();
  void StartDragging(bool on);
  void StartPoints();
  void AskForDistances(const std::array<QPointF, 3>& pixels);
  void PutPlace();
  [[nodiscard]] QDoubleSpinBox* MakeLength(const char* name, const QString& caption);

  SheetView& view_;
  std::function<void()> loaded_;
  QPushButton* remove_;
  QPushButton* drag_;
  QPushButton* points_;
  QCheckBox* shown_;
  QSlider* opacity_;
  QDoubleSpinBox* left_;
  QDoubleSpinBox* top_;
  QDoubleSpinBox* width_;
  QDoubleSpinBox* height_;
  QLabel* hint_;
  bool isShowing_ = false;
};

}  // namespace td::designer
