#include "qt/dialogs/dialog_window.h"

#include <QRadioButton>

#include "qt/dialogs/separator_delegate.h"
#include "qt/fields/choice_list.h"
#include "qt/fields/option_focus.h"
#include "qt/fields/wheel_guard.h"
#include "qt/preview/window_font.h"

namespace td {

DialogWindow::DialogWindow(const QString& title, DialogWindowEvents events, QWidget* parent)
    : QDialog(parent), events_(std::move(events)) {
  setWindowTitle(title);
  setFont(FontWithChinese(font()));
  GuardFieldsAgainstWheel(*this);
}

QComboBox* DialogWindow::MakeList(const QString& name, const QString& description) {
  auto* list = new ChoiceList(this);
  list->setObjectName(name);
  list->setAccessibleName(description);
  list->setItemDelegate(new SeparatorDelegate(list));
  list->KeepUsualWidth();
  connect(list, &QComboBox::activated, this,
          [this, control = name.toStdString()] { events_.clicked(control); });
  return list;
}

QLineEdit* DialogWindow::MakeBox(const QString& name, const QString& description) {
  auto* box = new QLineEdit(this);
  box->setObjectName(name);
  box->setAccessibleName(description);
  return box;
}

QCheckBox* DialogWindow::MakeCheckBox(const QString& name, const QString& caption) {
  auto* box = new QCheckBox(caption, this);
  box->setObjectName(name);
  return box;
}

QPushButton* DialogWindow::MakeButton(const QString& name, const QString& caption) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  connect(button, &QPushButton::clicked, this,
          [this, control = name.toStdString()] { events_.clicked(control); });
  return button;
}

QButtonGroup* DialogWindow::MakeOptions(const QString& name, const QStringList& captions) {
  auto* group = new QButtonGroup(this);
  group->setObjectName(name);
  for (const QString& caption : captions) {
    const int index = static_cast<int>(group->buttons().size());
    auto* option = new QRadioButton(caption, this);
    option->setObjectName(name + QString::number(index));
    group->addButton(option, index);
  }
  LetTabReachTheSetOption(group->buttons());
  return group;
}

// Whether the window closes is decided by whoever hears of it.
void DialogWindow::reject() {
  events_.closed();
}

}  // namespace td
