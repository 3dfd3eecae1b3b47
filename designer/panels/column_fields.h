// The fields of a panel, each for one column of the rows that the panel edits.
#pragma once

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "designer/panels/edited_rows.h"
#include "designer/panels/number_box.h"
#include "qt/fields/choice_list.h"

namespace td::designer {

class ColumnField {
 public:
  ColumnField(EditedRows& rows, std::string column) : rows_(rows), column_(std::move(column)) {}
  virtual ~ColumnField() = default;
  ColumnField(const ColumnField&) = delete;
  ColumnField& operator=(const ColumnField&) = delete;

  [[nodiscard]] virtual QWidget& Widget() = 0;
  [[nodiscard]] const std::string& Column() const { return column_; }

  // Shows what the rows hold; without a row that has the column the field is off.
  void Refresh();
  // Enters what was typed so far.
  virtual void FinishTyping() {}
  // What the field is for; the column's name comes behind it, for those who know the tables.
  void Explain(const QString& explanation);

 protected:
  virtual void Show(const SharedValue& shared) = 0;

  EditedRows& rows_;

 private:
  std::string column_;
  QString explanation_;
};

// Instead of a value that can't be shown: "mixed", "not set".
[[nodiscard]] QString WordsFor(const SharedValue& shared);

// A length is stored in twips and shown in millimetres, any other number as it is.
class NumberField : public NumberBox, public ColumnField {
 public:
  NumberField(EditedRows& rows, std::string column, const NumberForm& form);
  [[nodiscard]] QWidget& Widget() override { return *this; }
  void FinishTyping() override { interpretText(); }

 protected:
  void Show(const SharedValue& shared) override;

 private:
  bool isLength_;
};

class FlagField : public QCheckBox, public ColumnField {
 public:
  FlagField(EditedRows& rows, std::string column, const QString& text);
  [[nodiscard]] QWidget& Widget() override { return *this; }

 protected:
  void Show(const SharedValue& shared) override;
  void nextCheckState() override { setChecked(checkState() != Qt::Checked); }
};

struct Code {
  int code;
  QString name;
};

// A list of codes. `others` is the one that any other value, and none, means; without it such a
// value is shown by its number.
class CodeField : public ChoiceList, public ColumnField {
 public:
  CodeField(EditedRows& rows, std::string column, std::vector<Code> codes,
            std::optional<int> others = std::nullopt);
  [[nodiscard]] QWidget& Widget() override { return *this; }

  // Instead of writing the code into the column.
  std::function<void(int code)> chosen;

 protected:
  void Show(const SharedValue& shared) override;

 private:
  std::vector<Code> codes_;
  std::optional<int> others_;
};

// One line of text; each letter counts at once.
class LineField : public QLineEdit, public ColumnField {
 public:
  LineField(EditedRows& rows, std::string column);
  [[nodiscard]] QWidget& Widget() override { return *this; }

 protected:
  void Show(const SharedValue& shared) override;
  void focusOutEvent(QFocusEvent* event) override;
};

// A text of several lines; each letter counts at once. Tab leaves the field.
class LinesField : public QPlainTextEdit, public ColumnField {
 public:
  LinesField(EditedRows& rows, std::string column, int lines);
  [[nodiscard]] QWidget& Widget() override { return *this; }
  [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint(); }
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void Show(const SharedValue& shared) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  int lines_;
};

// A text that is typed or taken from a list of usual ones.
class ListedTextField : public ChoiceList, public ColumnField {
 public:
  // When what is typed counts.
  enum class Typing { kAtOnce, kWhenFinished };

  ListedTextField(EditedRows& rows, std::string column, const QStringList& usual, Typing typing);
  [[nodiscard]] QWidget& Widget() override { return *this; }
  void FinishTyping() override;

 protected:
  void Show(const SharedValue& shared) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Enter(const QString& text);

  QString shown_;
};

}  // namespace td::designer
