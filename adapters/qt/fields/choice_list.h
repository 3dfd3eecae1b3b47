// A drop-down list whose entries may be longer than it is wide.
#pragma once

#include <QComboBox>

namespace td {

// A long entry is shown with its middle left out, as names of printers differ at both ends; it can
// be read whole in a tooltip and in the opened list.
class ChoiceList : public QComboBox {
 public:
  explicit ChoiceList(QWidget* parent = nullptr);

  // For entries that are not to widen the window, such as names of printers and formats.
  void KeepUsualWidth();

  void showPopup() override;

 protected:
  bool event(QEvent* event) override;
  void initStyleOption(QStyleOptionComboBox* option) const override;
};

}  // namespace td
