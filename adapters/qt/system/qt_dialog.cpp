#include "qt/system/qt_dialog.h"

#include <QApplication>

#include "qt/dialogs/dialog_layouts.h"
#include "qt/system/application.h"

namespace td {
namespace {

void RequireEntry(const QComboBox& list, int index) {
  if (index < 0 || index >= list.count()) throw InvalidCallFailure();
}

}  // namespace

DialogWindow& QtDialog::Window() {
  if (window_) return *window_;
  if (!HasWindowSystem()) {
    throw Failure(kInvalidCall,
                  "没有可用的显示，无法打开“" + std::string(contents_.title) + "”窗口。");
  }
  const auto click = [this](std::string_view control) {
    React([&] {
      if (events_.Click && !isUnloaded_) events_.Click(control);
    });
  };
  window_ = std::make_unique<DialogWindow>(
      QString::fromUtf8(contents_.title),
      DialogWindowEvents{.clicked = click, .closed = [this] { React([this] { Unload(); }); }},
      QApplication::activeWindow());
  LayOutDialog(*window_, contents_);
  return *window_;
}

void QtDialog::ShowModal() {
  DialogWindow& window = Window();
  if (events_.Load) events_.Load();
  if (!isUnloaded_) window.exec();
  // The event loop may end without the window: when the program quits.
  Unload();
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void QtDialog::Unload() {
  if (isUnloaded_) return;
  isUnloaded_ = true;
  if (window_) window_->hide();
  if (events_.Unload) events_.Unload();
}

// No exception may pass through the event loop.
void QtDialog::React(const std::function<void()>& reaction) {
  try {
    reaction();
  } catch (...) {
    if (!failure_) failure_ = std::current_exception();
    if (!isUnloaded_) React([this] { Unload(); });
  }
}

std::string QtDialog::Text(std::string_view textBox) {
  return Window().Named<QLineEdit>(textBox).text().toStdString();
}

void QtDialog::PutText(std::string_view textBox, const std::string& text) {
  auto& box = Window().Named<QLineEdit>(textBox);
  box.setText(QString::fromStdString(text));
  box.setCursorPosition(0);
}

int QtDialog::CheckValue(std::string_view checkBox) {
  return Window().Named<QCheckBox>(checkBox).isChecked() ? 1 : 0;
}

void QtDialog::PutCheckValue(std::string_view checkBox, int value) {
  Window().Named<QCheckBox>(checkBox).setChecked(value != 0);
}

int QtDialog::Option(std::string_view group) {
  return Window().Named<QButtonGroup>(group).checkedId();
}

void QtDialog::PutOption(std::string_view group, int index) {
  QAbstractButton* option = Window().Named<QButtonGroup>(group).button(index);
  if (option == nullptr) {
    throw Failure(kNoSuchOption, "选项按钮 " + std::to_string(index) + " 不存在");
  }
  option->setChecked(true);
}

void QtDialog::ClearList(std::string_view list) {
  Window().Named<QComboBox>(list).clear();
}

// The first entry of a list would be selected at once.
void QtDialog::AddItem(std::string_view list, const std::string& text) {
  auto& control = Window().Named<QComboBox>(list);
  const int selected = control.currentIndex();
  control.addItem(QString::fromStdString(text));
  control.setCurrentIndex(selected);
}

int QtDialog::ListCount(std::string_view list) {
  return Window().Named<QComboBox>(list).count();
}

std::string QtDialog::ListItem(std::string_view list, int index) {
  const auto& control = Window().Named<QComboBox>(list);
  RequireEntry(control, index);
  return control.itemText(index).toStdString();
}

int QtDialog::ListIndex(std::string_view list) {
  return Window().Named<QComboBox>(list).currentIndex();
}

void QtDialog::PutListIndex(std::string_view list, int index) {
  auto& control = Window().Named<QComboBox>(list);
  RequireEntry(control, index);
  control.setCurrentIndex(index);
  if (events_.Click) events_.Click(list);
}

std::string QtDialog::ListText(std::string_view list) {
  return Window().Named<QComboBox>(list).currentText().toStdString();
}

}  // namespace td
