#include "qt/dialogs/length_note.h"

#include <cmath>

#include "qt/fields/length_field.h"
#include "text/conversions.h"

namespace td {
namespace {

constexpr double kLongest = 9999.9;  // millimetres

QString NoteText(double millimetres) {
  return QStringLiteral("≈ %1 毫米").arg(millimetres, 0, 'f', 1);
}

}  // namespace

LengthNote::LengthNote(const QLineEdit& box, QWidget* parent) : QLabel(parent) {
  setMinimumWidth(fontMetrics().horizontalAdvance(NoteText(-kLongest)));
  connect(&box, &QLineEdit::textChanged, this, [this](const QString& text) { Show(text); });
}

void LengthNote::Show(const QString& twips) {
  const double millimetres = Val(std::string_view(twips.toStdString())) / kTwipsPerMillimetre;
  const bool hasNote = !twips.isEmpty() && std::abs(millimetres) <= kLongest;
  setText(hasNote ? NoteText(millimetres) : QString());
}

}  // namespace td
