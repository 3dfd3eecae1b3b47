#include "designer/panels/number_box.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <algorithm>

#include "designer/view/words.h"

namespace td::designer {
namespace {

// Stands for the words, below any number that a table holds.
constexpr double kNoNumber = -1e12;

QString SuffixOf(NumberUnit unit) {
  if (unit == NumberUnit::kMillimetres) return QStringLiteral(" mm");
  if (unit == NumberUnit::kPoints) return Say(" pt");
  return {};
}

}  // namespace

NumberBox::NumberBox(const NumberForm& form, QWidget* parent)
    : QDoubleSpinBox(parent), form_(form) {
  constexpr int kRoomForNumber = 8;  // digits
  setKeyboardTracking(false);
  setDecimals(form.decimals);
  setRange(form.lowest, form.highest);
  setSingleStep(form.step);
  setSuffix(SuffixOf(form.unit));
  // The widest number of the range is hardly ever there: the field needn't be as wide.
  const int text = fontMetrics().horizontalAdvance(QString(kRoomForNumber, u'0') + suffix());
  const int frame =
      QDoubleSpinBox::minimumSizeHint().width() -
      fontMetrics().horizontalAdvance(QDoubleSpinBox::textFromValue(form.lowest) + suffix() + u' ');
  setMinimumWidth(text + std::max(frame, 0));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  connect(this, &QDoubleSpinBox::valueChanged, this, [this](double value) {
    if (value > kNoNumber && entered) entered(value);
  });
}

void NumberBox::ShowNumber(double number) {
  const QSignalBlocker blocker(this);
  setSpecialValueText({});
  setRange(std::min(form_.lowest, number), std::max(form_.highest, number));
  setValue(number);
}

void NumberBox::ShowWords(const QString& words) {
  const QSignalBlocker blocker(this);
  setRange(kNoNumber, form_.highest);
  setSpecialValueText(words);
  setValue(kNoNumber);
}

QString NumberBox::textFromValue(double value) const {
  // Millimetres keep their tenths, so that columns of fields look alike.
  const int fewest = form_.unit == NumberUnit::kMillimetres ? 1 : 0;
  for (int decimals = fewest; decimals < form_.decimals; ++decimals) {
    QString text = locale().toString(value, 'f', decimals);
    if (valueFromText(text) == value) return text.remove(locale().groupSeparator());
  }
  return QDoubleSpinBox::textFromValue(value);
}

QAbstractSpinBox::StepEnabled NumberBox::stepEnabled() const {
  return ShowsWords() ? StepEnabled(StepNone) : QDoubleSpinBox::stepEnabled();
}

void NumberBox::keyPressEvent(QKeyEvent* event) {
  const bool isText = !event->text().isEmpty() && event->text().at(0).isPrint();
  if (ShowsWords() && text() == specialValueText() && isText) selectAll();
  QDoubleSpinBox::keyPressEvent(event);
}

void NumberBox::focusOutEvent(QFocusEvent* event) {
  QDoubleSpinBox::focusOutEvent(event);
  if (left) left();
}

}  // namespace td::designer
