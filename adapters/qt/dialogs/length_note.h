// What a length in twips is in millimetres.
#pragma once

#include <QLabel>
#include <QLineEdit>

namespace td {

// Follows a text box and shows the number in it, as it will be understood, in millimetres. Shows
// nothing for an empty box and for lengths beyond any paper.
class LengthNote : public QLabel {
 public:
  // `box` and the note have the same parent.
  explicit LengthNote(const QLineEdit& box, QWidget* parent);
};

}  // namespace td
