#include "designer/panels/field_group.h"

#include <QHBoxLayout>
#include <QRegularExpression>

namespace td::designer {
namespace {

// A label without the mark of its key.
QString Plain(QString label) {
  static const QRegularExpression key(QStringLiteral("\\(&\\w\\)"));
  return label.remove(key).remove(u'&');
}

}  // namespace

FieldGroup::FieldGroup(const QString& title, QWidget* parent) : QGroupBox(title, parent) {
  form_ = new QFormLayout(this);
  form_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
}

void FieldGroup::Refresh() {
  for (ColumnField* field : fields_) field->Refresh();
}

void FieldGroup::FinishTyping() {
  for (ColumnField* field : fields_) {
    if (field->Widget().hasFocus()) field->FinishTyping();
  }
}

void FieldGroup::Register(ColumnField& field, const QString& label, const QString& explanation) {
  field.Widget().setObjectName(QString::fromStdString(field.Column()));
  if (!label.isEmpty()) field.Widget().setAccessibleName(Plain(label));
  field.Explain(explanation);
  fields_.push_back(&field);
}

void FieldGroup::Add(const QString& label, ColumnField* field, const QString& explanation) {
  Register(*field, label, explanation);
  form_->addRow(label, &field->Widget());
}

void FieldGroup::AddPair(const QString& label, ColumnField* field, const QString& secondLabel,
                         ColumnField* second) {
  Register(*field, label, {});
  Register(*second, secondLabel, {});
  auto* row = new QHBoxLayout;
  row->addWidget(&field->Widget(), 1);
  auto* between = new QLabel(secondLabel);
  between->setBuddy(&second->Widget());
  row->addWidget(between);
  row->addWidget(&second->Widget(), 1);
  auto* first = new QLabel(label);
  first->setBuddy(&field->Widget());
  form_->addRow(first, row);
}

void FieldGroup::AddWide(ColumnField* field, const QString& explanation) {
  Register(*field, {}, explanation);
  form_->addRow(&field->Widget());
}

QLabel* FieldGroup::AddNote() {
  QLabel* note = MakeNote(this);
  form_->addRow(note);
  return note;
}

QLabel* MakeNote(QWidget* parent) {
  auto* note = new QLabel(parent);
  note->setWordWrap(true);
  note->setTextFormat(Qt::PlainText);
  note->setForegroundRole(QPalette::PlaceholderText);
  note->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
  return note;
}

}  // namespace td::designer
