#include "qt/dialogs/field_grid.h"

#include <QLabel>
#include <string_view>

#include "dialogs/field_texts.h"
#include "qt/dialogs/length_note.h"

namespace td {
namespace {

enum Column { kLabel, kField, kUnit, kNote, kHint };

}  // namespace

FieldGrid::FieldGrid(DialogWindow& window) : window_(window) {
  setColumnStretch(kField, 1);
}

void FieldGrid::AddLabel(const QString& text, QWidget* field) {
  auto* label = new QLabel(text, &window_);
  label->setBuddy(field);
  addWidget(label, row_, kLabel, Qt::AlignRight | Qt::AlignVCenter);
}

void FieldGrid::AddField(const ListField& field) {
  const QString label = QString::fromUtf8(field.label);
  QComboBox* list =
      window_.MakeList(QString::fromUtf8(field.name), QString::fromStdString(DescriptionOf(field)));
  AddLabel(label, list);
  addWidget(list, row_, kField, 1, -1);
  ++row_;
}

void FieldGrid::AddField(const NumberField& field) {
  const QString label = QString::fromUtf8(field.label);
  const QString unit = QString::fromUtf8(field.unit);
  QLineEdit* box =
      window_.MakeBox(QString::fromUtf8(field.name), QString::fromStdString(DescriptionOf(field)));
  box->setAccessibleDescription(QString::fromUtf8(field.hint));
  box->setMinimumWidth(box->fontMetrics().averageCharWidth() * kRoomForNumber);
  AddLabel(label, box);
  addWidget(box, row_, kField);
  addWidget(new QLabel(unit, &window_), row_, kUnit);
  if (std::string_view(field.unit) == kTwipsUnit)
    addWidget(new LengthNote(*box, &window_), row_, kNote);
  addWidget(new QLabel(QString::fromUtf8(field.hint), &window_), row_, kHint);
  ++row_;
}

}  // namespace td
