#include "qt/dialogs/length_note.h"

#include "dialogs/field_texts.h"

namespace td {

LengthNote::LengthNote(const QLineEdit& box, QWidget* parent) : QLabel(parent) {
  setMinimumWidth(fontMetrics().horizontalAdvance(QString::fromStdString(WidestNoteOfLength())));
  connect(&box, &QLineEdit::textChanged, this, [this](const QString& twips) {
    setText(QString::fromStdString(NoteOfLength(twips.toStdString())));
  });
}

}  // namespace td
