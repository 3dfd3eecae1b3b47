#include "designer/panels/column_fields.h"

#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "designer/model/lengths.h"
#include "designer/view/words.h"
#include "text/conversions.h"

namespace td::designer {
namespace {

// A text as a field shows it; bytes are no text.
QString Shown(const Value& value) {
  if (std::holds_alternative<Bytes>(value)) return {};
  return QString::fromStdString(ToText(value));
}

}  // namespace

void ColumnField::Refresh() {
  const SharedValue shared = rows_.Shared(column_);
  Widget().setEnabled(shared.isThere);
  Show(shared);
}

void ColumnField::Explain(const QString& explanation) {
  const QString column = QString::fromStdString(column_);
  Widget().setToolTip(explanation.isEmpty() ? column : explanation + u'\n' + column);
}

QString WordsFor(const SharedValue& shared) {
  if (!shared.isThere) return QStringLiteral("–");
  if (shared.isMixed) return Say("mixed");
  return IsNull(shared.value) ? Say("not set") : Shown(shared.value);
}

NumberField::NumberField(EditedRows& rows, std::string column, const NumberForm& form)
    : NumberBox(form),
      ColumnField(rows, std::move(column)),
      isLength_(form.unit == NumberUnit::kMillimetres) {
  entered = [this](double number) {
    rows_.PutNumber(Column(), isLength_ ? StoredTwips(TwipsOf(number)) : number);
  };
  left = [this] { rows_.EndGesture(); };
}

void NumberField::Show(const SharedValue& shared) {
  if (!shared.isThere || shared.isMixed || !IsNumeric(shared.value)) {
    ShowWords(WordsFor(shared));
    return;
  }
  const double number = ToDouble(shared.value);
  ShowNumber(isLength_ ? MillimetresOf(number) : number);
}

FlagField::FlagField(EditedRows& rows, std::string column, const QString& text)
    : QCheckBox(text), ColumnField(rows, std::move(column)) {
  connect(this, &QCheckBox::clicked, this, [this](bool isSet) {
    rows_.EndGesture();
    rows_.PutFlag(Column(), isSet);
    rows_.EndGesture();
  });
}

void FlagField::Show(const SharedValue& shared) {
  const QSignalBlocker blocker(this);
  setTristate(shared.isMixed);
  if (shared.isMixed) {
    setCheckState(Qt::PartiallyChecked);
  } else {
    setChecked(shared.isSet);
  }
}

CodeField::CodeField(EditedRows& rows, std::string column, std::vector<Code> codes,
                     std::optional<int> others)
    : ColumnField(rows, std::move(column)), codes_(std::move(codes)), others_(others) {
  for (const Code& code : codes_) addItem(code.name, code.code);
  connect(this, &QComboBox::activated, this, [this](int index) {
    const int code = codes_[static_cast<std::size_t>(index)].code;
    rows_.EndGesture();
    if (chosen) {
      chosen(code);
    } else {
      rows_.PutNumber(Column(), code);
    }
    rows_.EndGesture();
  });
}

void CodeField::Show(const SharedValue& shared) {
  const QSignalBlocker blocker(this);
  std::optional<int> wanted = others_;
  if (IsNumeric(shared.value)) {
    const auto found = std::ranges::find_if(
        codes_, [&](const Code& code) { return code.code == ToDouble(shared.value); });
    if (found != codes_.end()) wanted = found->code;
  }
  if (!shared.isThere || shared.isMixed) wanted.reset();
  setPlaceholderText(WordsFor(shared));
  setCurrentIndex(wanted ? findData(*wanted) : -1);
}

LineField::LineField(EditedRows& rows, std::string column) : ColumnField(rows, std::move(column)) {
  connect(this, &QLineEdit::textEdited, this,
          [this](const QString& text) { rows_.Put(Column(), text.toStdString()); });
}

void LineField::Show(const SharedValue& shared) {
  const bool hasText = shared.isThere && !shared.isMixed && !IsNull(shared.value);
  const QString wanted = hasText ? Shown(shared.value) : QString();
  setPlaceholderText(hasText ? QString() : WordsFor(shared));
  if (text() != wanted) setText(wanted);  // else the cursor would jump to the end
}

void LineField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  rows_.EndGesture();
}

LinesField::LinesField(EditedRows& rows, std::string column, int lines)
    : ColumnField(rows, std::move(column)), lines_(lines) {
  setTabChangesFocus(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  connect(this, &QPlainTextEdit::textChanged, this,
          [this] { rows_.Put(Column(), toPlainText().toStdString()); });
}

QSize LinesField::minimumSizeHint() const {
  constexpr int kNarrowest = 80;
  const int frame = 2 * frameWidth() + 2 * static_cast<int>(document()->documentMargin());
  return {kNarrowest, fontMetrics().lineSpacing() * lines_ + frame};
}

void LinesField::Show(const SharedValue& shared) {
  const QSignalBlocker blocker(this);
  const bool hasText = shared.isThere && !shared.isMixed && !IsNull(shared.value);
  QString wanted = hasText ? Shown(shared.value) : QString();
  setPlaceholderText(hasText ? QString() : WordsFor(shared));
  // The field knows one kind of line end.
  wanted.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
  if (toPlainText() != wanted) setPlainText(wanted);
}

void LinesField::focusOutEvent(QFocusEvent* event) {
  QPlainTextEdit::focusOutEvent(event);
  rows_.EndGesture();
}

ListedTextField::ListedTextField(EditedRows& rows, std::string column, const QStringList& usual,
                                 Typing typing)
    : ColumnField(rows, std::move(column)) {
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  addItems(usual);
  setCurrentIndex(-1);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(12);
  connect(this, &QComboBox::textActivated, this, [this](const QString& text) { Enter(text); });
  if (typing == Typing::kAtOnce) {
    setCompleter(nullptr);  // would add letters that nobody typed
    connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) { Enter(text); });
  } else {
    connect(lineEdit(), &QLineEdit::editingFinished, this, [this] { FinishTyping(); });
  }
}

void ListedTextField::Enter(const QString& text) {
  shown_ = text;
  rows_.Put(Column(), text.toStdString());
}

void ListedTextField::FinishTyping() {
  if (currentText() != shown_) Enter(currentText());
}

void ListedTextField::Show(const SharedValue& shared) {
  const QSignalBlocker blocker(this);
  const bool hasText = shared.isThere && !shared.isMixed && !IsNull(shared.value);
  shown_ = hasText ? Shown(shared.value) : QString();
  lineEdit()->setPlaceholderText(hasText ? QString() : WordsFor(shared));
  if (currentText() != shown_) setEditText(shown_);
}

void ListedTextField::focusOutEvent(QFocusEvent* event) {
  ChoiceList::focusOutEvent(event);
  rows_.EndGesture();
}

}  // namespace td::designer
