#include "qt/preview/page_setup_dialog.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "preview/toolbar_buttons.h"
#include "qt/fields/option_focus.h"
#include "qt/fields/wheel_guard.h"
#include "qt/preview/unkept_sheet_warning.h"
#include "qt/preview/window_font.h"

namespace td {

namespace words = page_setup_words;

namespace {

QString Text(const char* words) {
  return QString::fromUtf8(words);
}

}  // namespace

PageSetupDialog::PageSetupDialog(PageDocument& document, const std::string& printer,
                                 OwnSheets ownSheets, QWidget* parent)
    : QDialog(parent), document_(document), ownSheets_(std::move(ownSheets)) {
  setWindowTitle(Text(words::kTitle));
  setFont(FontWithChinese(font()));
  GuardFieldsAgainstWheel(*this);
  MakeFields();
  FillPrinters(printer);
  FillPapers();
  LayOutFields();
  ConnectFields();
  PaperChosen();
}

void PageSetupDialog::MakeFields() {
  printer_ = new ChoiceList(this);
  printer_->KeepUsualWidth();
  paper_ = new ChoiceList(this);
  width_ = new LengthField(document_.PaperWidth(), this);
  height_ = new LengthField(document_.PaperHeight(), this);
  portrait_ = new QRadioButton(Text(words::kPortrait), this);
  landscape_ = new QRadioButton(Text(words::kLandscape), this);
  (document_.Orientation() == kLandscape ? landscape_ : portrait_)->setChecked(true);
  LetTabReachTheSetOption({portrait_, landscape_});
  left_ = new LengthField(document_.MarginLeft(), this);
  top_ = new LengthField(document_.MarginTop(), this);
  right_ = new LengthField(document_.MarginRight(), this);
  bottom_ = new LengthField(document_.MarginBottom(), this);
  picture_ = new SheetPicture(this);
  objection_ = new QLabel(this);
  objection_->setWordWrap(true);
  objection_->setStyleSheet(QStringLiteral("color: #b00020"));
  confirm_ = new QPushButton(Text(kConfirmCaption), this);
  confirm_->setDefault(true);
  cancel_ = new QPushButton(Text(kCancelCaption), this);
}

// A printer that the machine doesn't have leaves the list without a choice: the first entry would
// be one that nobody made.
void PageSetupDialog::FillPrinters(const std::string& printer) {
  const int count = document_.DeviceCount();
  for (int i = 0; i < count; ++i) {
    printer_->addItem(QString::fromStdString(document_.DeviceName(i)));
  }
  shownPrinter_ = printer_->findText(QString::fromStdString(printer));
  printer_->setCurrentIndex(shownPrinter_);
  printer_->setPlaceholderText(count > 0 ? Text(words::kNotChosen) : Text(words::kNoPrinters));
  printer_->setEnabled(count > 0);
}

void PageSetupDialog::FillPapers() {
  for (const PaperEntry& entry : PaperEntries(document_)) {
    paper_->addItem(QString::fromStdString(entry.text), entry.code);
  }
  paper_->setCurrentIndex(paper_->findData(document_.PaperSize()));
}

void PageSetupDialog::LayOutFields() {
  auto* sheet = new QGroupBox(Text(words::kSheetGroup), this);
  auto* sheetForm = new QFormLayout(sheet);
  sheetForm->addRow(Text(words::kPrinter), printer_);
  sheetForm->addRow(Text(words::kPaper), paper_);
  sheetForm->addRow(Text(words::kWidth), width_);
  sheetForm->addRow(Text(words::kHeight), height_);

  auto* direction = new QGroupBox(Text(words::kDirectionGroup), this);
  auto* directionBox = new QVBoxLayout(direction);
  directionBox->addWidget(portrait_);
  directionBox->addWidget(landscape_);
  directionBox->addStretch();

  auto* margins = new QGroupBox(Text(words::kMarginGroup), this);
  auto* marginForm = new QFormLayout(margins);
  marginForm->addRow(Text(words::kLeft), left_);
  marginForm->addRow(Text(words::kTop), top_);
  marginForm->addRow(Text(words::kRight), right_);
  marginForm->addRow(Text(words::kBottom), bottom_);

  auto* lower = new QHBoxLayout;
  lower->addWidget(direction);
  lower->addWidget(margins);
  lower->addWidget(picture_);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(confirm_);
  buttons->addWidget(cancel_);
  auto* whole = new QVBoxLayout(this);
  whole->addWidget(sheet);
  whole->addLayout(lower);
  whole->addWidget(objection_);
  whole->addLayout(buttons);
}

void PageSetupDialog::ConnectFields() {
  connect(confirm_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
  connect(paper_, &QComboBox::currentIndexChanged, this, [this] { PaperChosen(); });
  connect(portrait_, &QRadioButton::toggled, this, [this] { Check(); });
  for (LengthField* field : {width_, height_, left_, top_, right_, bottom_}) {
    connect(field, &QDoubleSpinBox::valueChanged, this, [this] { Check(); });
  }
}

std::int32_t PageSetupDialog::PaperCode() const {
  return paper_->currentData().toInt();
}

// A named sheet shows its size; only that of a user-defined one can be written.
void PageSetupDialog::PaperChosen() {
  const bool isUserDefined = PaperCode() == kUserDefinedPaper;
  if (const auto extent = StandardPaper(PaperCode())) {
    width_->PutTwips(extent->width);
    height_->PutTwips(extent->height);
  } else if (!isUserDefined) {
    width_->PutTwips(document_.PaperWidth());
    height_->PutTwips(document_.PaperHeight());
  }
  width_->setEnabled(isUserDefined);
  height_->setEnabled(isUserDefined);
  Check();
}

PageSetupChoice PageSetupDialog::Choice() const {
  return {.paper = PaperCode(),
          .sheet = {width_->Twips(), height_->Twips()},
          .isLandscape = landscape_->isChecked(),
          .margins = {left_->Twips(), top_->Twips(), right_->Twips(), bottom_->Twips()}};
}

void PageSetupDialog::Check() {
  const PageSetupChoice choice = Choice();
  const std::string objection = ObjectionTo(choice);
  objection_->setText(QString::fromStdString(objection));
  confirm_->setEnabled(objection.empty());
  picture_->Show(choice.SheetAsRead(), choice.margins);
}

// Asks the user where the sheet will not come back, and changes it if the user agrees.
bool PageSetupDialog::MayBeUsed() {
  const PageSetupChoice choice = Choice();
  if (IsKept(choice, ownSheets_)) return true;
  std::vector<std::string> printers;
  printers.reserve(static_cast<std::size_t>(printer_->count()));
  for (int i = 0; i < printer_->count(); ++i) {
    printers.push_back(printer_->itemText(i).toStdString());
  }
  const SheetAnswer answer = WarnOfUnkeptSheet(UnkeptSheetOf(choice, ownSheets_, printers), this);
  if (answer == SheetAnswer::kUseNamedPaper) ChooseNamedPaper(choice.sheet);
  return answer != SheetAnswer::kGoBack;
}

// The list may not have it yet; the user-defined sheet stays the last entry.
void PageSetupDialog::ChooseNamedPaper(const PaperExtent& sheet) {
  const std::int32_t code = PaperCodeOf(sheet);
  if (paper_->findData(code) < 0) {
    paper_->insertItem(paper_->count() - 1, QString::fromStdString(PaperText(code, sheet)), code);
  }
  paper_->setCurrentIndex(paper_->findData(code));
}

void PageSetupDialog::accept() {
  if (MayBeUsed()) QDialog::accept();
}

std::string PageSetupDialog::ChosenPrinter() const {
  const bool isChosen = printer_->currentIndex() != shownPrinter_;
  return isChosen ? printer_->currentText().toStdString() : std::string();
}

void PageSetupDialog::Apply() {
  PutChoice(document_, Choice(), ChosenPrinter());
}

}  // namespace td
