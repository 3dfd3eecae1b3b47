// The window of a dialog: controls by name, which a layout makes and places.
#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <string>
#include <string_view>

#include "platform/standard_failures.h"

namespace td {

struct DialogWindowEvents {
  // The user pressed a button or chose an entry of a list, be it the one that was selected already.
  std::function<void(std::string_view control)> clicked;
  // The close box or Escape; the window is still open.
  std::function<void()> closed;
};

class DialogWindow : public QDialog {
 public:
  DialogWindow(const QString& title, DialogWindowEvents events, QWidget* parent);

  // Each makes an empty control that the window owns. Screen readers call it by its description;
  // buttons, check boxes and options are called by their captions.
  QComboBox* MakeList(const QString& name, const QString& description);
  QLineEdit* MakeBox(const QString& name, const QString& description);
  QCheckBox* MakeCheckBox(const QString& name, const QString& caption);
  QPushButton* MakeButton(const QString& name, const QString& caption);
  // Options count from 0; none is on.
  QButtonGroup* MakeOptions(const QString& name, const QStringList& captions);

  // The control of a name. Fails with kInvalidCall when there is none of that name and kind.
  template <class Control>
  [[nodiscard]] Control& Named(std::string_view name) const {
    const auto length = static_cast<qsizetype>(name.size());
    auto* control = findChild<Control*>(QString::fromUtf8(name.data(), length));
    if (control == nullptr) throw InvalidCallFailure();
    return *control;
  }

  void reject() override;

 private:
  DialogWindowEvents events_;
};

}  // namespace td
