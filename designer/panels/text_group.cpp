#include <QSignalBlocker>

#include "designer/panels/format_example.h"
#include "designer/panels/item_groups.h"
#include "designer/view/words.h"
#include "items/image_items.h"

namespace td::designer {
namespace {

constexpr int kAlignRightCode = 1;

std::vector<Code> Alignments() {
  return {{static_cast<int>(ItemAlignment::kLeft), Say("Left")},
          {static_cast<int>(ItemAlignment::kCentre), Say("Centred")},
          {kAlignRightCode, Say("Right")}};
}

QStringList UsualPictures() {
  return {QStringLiteral("0"),         QStringLiteral("0.00"),
          QStringLiteral("0.##"),      QStringLiteral("#,##0.00"),
          QStringLiteral("¥#,##0.00"), QStringLiteral("#,##0.00;(#,##0.00)"),
          QStringLiteral("0.0%"),      QStringLiteral("0000")};
}

QString ExampleText(const FormatExample& example) {
  switch (example.use) {
    case PictureUse::kUsed:
      break;
    case PictureUse::kFixedText:
      return Say("A fixed text has no picture string.");
    case PictureUse::kNotInHead:
      return Say("The head prints values as they come, without a picture string.");
    case PictureUse::kNotANumber:
      return Say("The first row's value is no number and prints as it comes: %1")
          .arg(QString::fromStdString(example.text));
    case PictureUse::kNoPicture:
      return Say("This field has no picture string.");
    case PictureUse::kIsNull:
      return Say(
          "Without a picture string that is set, if need be to an empty one, a sum prints "
          "nothing.");
  }
  const QString words = example.isFromData ? Say("First row: %1 → %2") : Say("Example: %1 → %2");
  return words.arg(QString::fromStdString(example.value), QString::fromStdString(example.text));
}

}  // namespace

TextGroup::TextGroup(EditedItems& items, Workspace& workspace)
    : FieldGroup(Say("Text")), items_(items), workspace_(workspace) {
  field_ = new ChoiceList;
  field_->setObjectName(QStringLiteral("FObjectFieldName"));
  field_->setAccessibleName(Say("Shows"));
  field_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  field_->setMinimumContentsLength(12);
  field_->setToolTip(Say("The value that it shows, by its variable.") +
                     QStringLiteral("\nFObjectFieldName"));
  connect(field_, &QComboBox::activated, this, [this](int index) {
    items_.Do(ShowField(workspace_.document.Current(), items_.Ids(),
                        field_->itemData(index).toString().toStdString()));
  });
  Form().addRow(Say("&Shows"), field_);
  fieldNote_ = AddNote();
  Add(Say("Te&xt"), new LinesField(items, "FObjectCaption", 2),
      Say("The text itself, or what stands before the value. The name of the variable doesn't "
          "print."));
  Add(Say("Ali&gn"), new CodeField(items, "FAlignMent", Alignments(), kAlignRightCode),
      Say("Down, it is always centred in its box."));
  AddWide(new FlagField(items, "FWordWrap", Say("Wraps in its box")),
          Say("Else a long text runs over its neighbour."));
  AddWide(new FlagField(items, "FAutoSize", Say("Without a box, from its place on")),
          Say("In the head, and for the page number in all bands."));
  Add(Say("Picture s&tring"),
      new ListedTextField(items, "FFormatString", UsualPictures(),
                          ListedTextField::Typing::kAtOnce),
      Say("How a number prints: 0.00, #,##0.00"));
  example_ = AddNote();
  example_->setObjectName(QStringLiteral("Example"));
  pictureFinding_ = AddNote();
  pictureFinding_->setObjectName(QStringLiteral("PictureFinding"));
  pictureFinding_->setForegroundRole(QPalette::WindowText);
}

void TextGroup::Refresh() {
  FieldGroup::Refresh();
  FillFields();
  RefreshField();
  RefreshExample();
  RefreshFinding();
}

void TextGroup::FillFields() {
  const QSignalBlocker blocker(field_);
  field_->clear();
  field_->addItem(Say("its text alone"), QString());
  for (const Variable& variable : workspace_.document.Current().variables) {
    const QString caption = QString::fromStdString(variable.Caption());
    const QString name = QString::fromStdString(variable.Name());
    field_->addItem(caption == name ? caption : caption + QStringLiteral(" – ") + name, caption);
  }
  for (const ImageToken& token : kImageTokens) {
    const QString name = QString::fromUtf8(token.name.data(), static_cast<int>(token.name.size()));
    field_->addItem(NameOfChoice({ChoiceKind::kImage, token.name, token.column}), name);
  }
}

// A name that isn't in the list prints as a fixed text, and one that is in it may print nothing.
void TextGroup::RefreshField() {
  const QSignalBlocker blocker(field_);
  const SharedValue shared = items_.Shared("FObjectFieldName");
  field_->setEnabled(shared.isThere);
  const bool isOne = shared.isThere && !shared.isMixed;
  const QString name = isOne && !IsNull(shared.value) ? WordsFor(shared) : QString();
  const int index = isOne ? field_->findData(name) : -1;
  field_->setPlaceholderText(isOne ? name : WordsFor(shared));
  field_->setCurrentIndex(index);
  QString note;
  if (isOne && index < 0) note = Say("“%1” is no variable: the text prints alone.").arg(name);
  for (const Item* item : items_.Items()) {
    if (note.isEmpty()) {
      note = ReasonAgainst(ChoiceOf(workspace_.document.Current(), *item), item->Site());
    }
  }
  fieldNote_->setText(note);
  Form().setRowVisible(fieldNote_, !note.isEmpty());
}

void TextGroup::RefreshExample() {
  const std::vector<const Item*> items = items_.Items();
  example_->setText(items.empty() ? QString()
                                  : ExampleText(ExampleOf(workspace_.document.Current(),
                                                          *items.front(), workspace_.data.get())));
}

// What the checker says of the picture string of the one item.
void TextGroup::RefreshFinding() {
  QString words;
  for (const FormatFinding& finding : workspace_.findings.All()) {
    const bool isOfItem = items_.Ids().size() == 1 && finding.item == items_.Ids().front();
    if (!isOfItem || !finding.onPictureString) continue;
    words = QString::fromStdString(finding.wrong) + u' ' + QString::fromStdString(finding.mend);
    break;
  }
  pictureFinding_->setText(words);
  Form().setRowVisible(pictureFinding_, !words.isEmpty());
}

}  // namespace td::designer
