#include "qt/dialogs/dialog_layouts.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>

#include "qt/dialogs/field_grid.h"

namespace td {
namespace {

QLayout* Buttons(DialogWindow& window, const DialogContents& contents) {
  auto* row = new QHBoxLayout;
  row->addStretch();
  for (const CaptionedControl& button : {contents.confirm, contents.leave}) {
    row->addWidget(
        window.MakeButton(QString::fromUtf8(button.name), QString::fromUtf8(button.caption)));
  }
  window.Named<QPushButton>(contents.confirm.name).setDefault(true);
  return row;
}

QWidget* Options(DialogWindow& window, const OptionGroup& group) {
  auto* frame = new QGroupBox(QString::fromUtf8(group.title), &window);
  auto* column = new QVBoxLayout(frame);
  QStringList captions;
  for (const char* caption : group.captions) captions.append(QString::fromUtf8(caption));
  for (QAbstractButton* option :
       window.MakeOptions(QString::fromUtf8(group.name), captions)->buttons()) {
    column->addWidget(option);
  }
  column->addStretch();
  return frame;
}

QLayout* CheckBoxes(DialogWindow& window, std::span<const CaptionedControl> boxes) {
  auto* column = new QVBoxLayout;
  for (const CaptionedControl& box : boxes) {
    column->addWidget(
        window.MakeCheckBox(QString::fromUtf8(box.name), QString::fromUtf8(box.caption)));
  }
  return column;
}

}  // namespace

// Fields, buttons and what lies between them are set apart by some room.
void LayOutDialog(DialogWindow& window, const DialogContents& contents) {
  constexpr int kRoom = 12;
  auto* whole = new QVBoxLayout(&window);
  whole->setSpacing(kRoom);
  auto* fields = new FieldGrid(window);
  whole->addLayout(fields);
  for (const DialogField& field : contents.fields) {
    std::visit([&](const auto& kind) { fields->AddField(kind); }, field);
  }
  if (contents.options != nullptr) {
    auto* page = new QHBoxLayout;
    page->setSpacing(kRoom);
    page->addWidget(Options(window, *contents.options), 1);
    page->addLayout(CheckBoxes(window, contents.checkBoxes), 1);
    whole->addLayout(page);
  }
  whole->addStretch();
  whole->addLayout(Buttons(window, contents));
}

}  // namespace td
