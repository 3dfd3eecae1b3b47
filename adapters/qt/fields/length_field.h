// An entry field for a length.
#pragma once

#include <QDoubleSpinBox>

#include "page_document/drawing.h"

namespace td {

inline constexpr double kTwipsPerMillimetre = kTwipsPerInch / 25.4;

// Shows millimetres and holds twips. A length that the user leaves alone keeps its exact value.
class LengthField : public QDoubleSpinBox {
 public:
  explicit LengthField(double twips, QWidget* parent = nullptr);

  void PutTwips(double twips);
  [[nodiscard]] double Twips() const;

 private:
  double twips_ = 0;
  double shown_ = 0;  // what the field shows for `twips_`
};

}  // namespace td
