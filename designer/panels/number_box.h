// An entry field for a number that may not be one: several items may hold different ones.
#pragma once

#include <QDoubleSpinBox>
#include <functional>

namespace td::designer {

enum class NumberUnit { kNone, kMillimetres, kPoints };

struct NumberForm {
  NumberUnit unit = NumberUnit::kNone;
  int decimals = 0;
  double lowest = 0;
  double highest = 0;
  double step = 1;
};

// Lengths of a sheet: to a hundredth of a millimetre, in steps of a tenth.
inline constexpr NumberForm kAnyLength = {NumberUnit::kMillimetres, 2, -5080, 5080, 0.1};
inline constexpr NumberForm kSize = {NumberUnit::kMillimetres, 2, 0, 5080, 0.1};

// What the user types counts when it is finished, by Enter or by leaving the field; a step of the
// arrows or the wheel counts at once. A number that the user leaves alone is never entered, so that
// one which has more decimals than are shown stays what it is.
class NumberBox : public QDoubleSpinBox {
 public:
  explicit NumberBox(const NumberForm& form, QWidget* parent = nullptr);

  // In the unit of the form. A number beyond its range widens it.
  void ShowNumber(double number);
  // Instead of a number; the first one that is typed replaces them.
  void ShowWords(const QString& words);
  [[nodiscard]] bool ShowsWords() const { return !specialValueText().isEmpty(); }

  // Called with each number that the user enters, and when the user leaves the field.
  std::function<void(double number)> entered;
  std::function<void()> left;

 protected:
  [[nodiscard]] QString textFromValue(double value) const override;
  [[nodiscard]] StepEnabled stepEnabled() const override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  NumberForm form_;
};

}  // namespace td::designer
