#include "qt/fields/length_field.h"

namespace td {

LengthField::LengthField(double twips, QWidget* parent) : QDoubleSpinBox(parent) {
  constexpr double kLongest = 5080;  // millimetres: the longest side that a page can have
  setDecimals(1);
  setRange(0, kLongest);
  setSuffix(QStringLiteral(" mm"));
  PutTwips(twips);
}

void LengthField::PutTwips(double twips) {
  twips_ = twips;
  setValue(twips / kTwipsPerMillimetre);
  shown_ = value();
}

double LengthField::Twips() const {
  return value() == shown_ ? twips_ : value() * kTwipsPerMillimetre;
}

}  // namespace td
