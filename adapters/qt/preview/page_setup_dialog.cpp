#include "qt/preview/page_setup_dialog.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "page_document/offered_papers.h"
#include "page_document/paper.h"
#include "qt/fields/option_focus.h"
#include "qt/fields/wheel_guard.h"
#include "qt/preview/unkept_sheet.h"
#include "qt/preview/window_font.h"

namespace td {
namespace {

QString SizeText(double width, double height) {
  const auto millimetres = [](double twips) {
    return QString::number(qRound(twips / kTwipsPerMillimetre * 10) / 10.0);
  };
  return millimetres(width) + QStringLiteral(" × ") + millimetres(height) + QStringLiteral(" mm");
}

QString PaperText(const QString& name, double width, double height) {
  return name + QStringLiteral("（") + SizeText(width, height) + QStringLiteral("）");
}

// A paper that has no name here is called by its number.
QString PaperText(std::int32_t code, double width, double height) {
  if (const OfferedPaper* offered = FindOfferedPaper(code)) {
    const QByteArray name(offered->chinese.data(), static_cast<qsizetype>(offered->chinese.size()));
    return PaperText(QString::fromUtf8(name), width, height);
  }
  return PaperText(QStringLiteral("纸张 ") + QString::number(code), width, height);
}

}  // namespace

PageSetupDialog::PageSetupDialog(PageDocument& document, const std::string& printer,
                                 OwnSheets ownSheets, QWidget* parent)
    : QDialog(parent), document_(document), ownSheets_(std::move(ownSheets)) {
  setWindowTitle(QStringLiteral("页面设置"));
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
  portrait_ = new QRadioButton(QStringLiteral("纵向(&P)"), this);
  landscape_ = new QRadioButton(QStringLiteral("横向(&L)"), this);
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
  confirm_ = new QPushButton(QStringLiteral("确定(&O)"), this);
  confirm_->setDefault(true);
  cancel_ = new QPushButton(QStringLiteral("取消(&C)"), this);
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
  printer_->setPlaceholderText(count > 0 ? QStringLiteral("（未选择）")
                                         : QStringLiteral("（没有打印机）"));
  printer_->setEnabled(count > 0);
}

void PageSetupDialog::FillPapers() {
  for (const OfferedPaper& offered : OfferedPapers()) {
    const auto extent = StandardPaper(offered.code);
    if (!extent) continue;
    paper_->addItem(PaperText(offered.code, extent->width, extent->height), offered.code);
  }
  paper_->addItem(QStringLiteral("自定义"), kUserDefinedPaper);
  const std::int32_t current = document_.PaperSize();
  if (paper_->findData(current) < 0) {
    InsertPaper(current, {document_.PaperWidth(), document_.PaperHeight()});
  }
  paper_->setCurrentIndex(paper_->findData(current));
}

void PageSetupDialog::InsertPaper(std::int32_t code, const PaperExtent& extent) {
  paper_->insertItem(paper_->count() - 1, PaperText(code, extent.width, extent.height), code);
}

void PageSetupDialog::LayOutFields() {
  auto* sheet = new QGroupBox(QStringLiteral("打印机和纸张"), this);
  auto* sheetForm = new QFormLayout(sheet);
  sheetForm->addRow(QStringLiteral("打印机(&D)："), printer_);
  sheetForm->addRow(QStringLiteral("纸张(&S)："), paper_);
  sheetForm->addRow(QStringLiteral("宽度(&W)："), width_);
  sheetForm->addRow(QStringLiteral("高度(&H)："), height_);

  auto* direction = new QGroupBox(QStringLiteral("方向"), this);
  auto* directionBox = new QVBoxLayout(direction);
  directionBox->addWidget(portrait_);
  directionBox->addWidget(landscape_);
  directionBox->addStretch();

  auto* margins = new QGroupBox(QStringLiteral("页边距"), this);
  auto* marginForm = new QFormLayout(margins);
  marginForm->addRow(QStringLiteral("左(&F)："), left_);
  marginForm->addRow(QStringLiteral("上(&T)："), top_);
  marginForm->addRow(QStringLiteral("右(&R)："), right_);
  marginForm->addRow(QStringLiteral("下(&B)："), bottom_);

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

PaperExtent PageSetupDialog::Sheet() const {
  return {width_->Twips(), height_->Twips()};
}

QSizeF PageSetupDialog::SheetAsRead() const {
  const QSizeF sheet(width_->Twips(), height_->Twips());
  return landscape_->isChecked() ? sheet.transposed() : sheet;
}

SheetMargins PageSetupDialog::Margins() const {
  return {left_->Twips(), top_->Twips(), right_->Twips(), bottom_->Twips()};
}

QString PageSetupDialog::Objection() const {
  const QSizeF sheet = SheetAsRead();
  const SheetMargins margins = Margins();
  if (sheet.width() <= 0 || sheet.height() <= 0) {
    return QStringLiteral("纸张的宽度和高度都必须大于 0。");
  }
  if (margins.left + margins.right >= sheet.width()) {
    return QStringLiteral("左右页边距之和必须小于纸张的宽度。");
  }
  if (margins.top + margins.bottom >= sheet.height()) {
    return QStringLiteral("上下页边距之和必须小于纸张的高度。");
  }
  return {};
}

void PageSetupDialog::Check() {
  const QString objection = Objection();
  objection_->setText(objection);
  confirm_->setEnabled(objection.isEmpty());
  picture_->Show(SheetAsRead(), Margins());
}

// A stored user-defined sheet brings no size back: a new document keeps the one that it begins
// with.
bool PageSetupDialog::IsKept() const {
  if (PaperCode() != kUserDefinedPaper) return true;
  const auto first = ownSheets_.ofNewDocument ? ownSheets_.ofNewDocument() : std::nullopt;
  return first && IsSameSheet(*first, Sheet());
}

QStringList PageSetupDialog::PrintersWithSheet() const {
  QStringList printers;
  if (!ownSheets_.ofPrinter) return printers;
  for (int i = 0; i < printer_->count(); ++i) {
    const auto own = ownSheets_.ofPrinter(printer_->itemText(i).toStdString());
    if (own && IsSameSheet(*own, Sheet())) printers.append(printer_->itemText(i));
  }
  return printers;
}

// Asks the user where the sheet will not come back, and changes it if the user agrees.
bool PageSetupDialog::MayBeUsed() {
  if (IsKept()) return true;
  const PaperExtent sheet = Sheet();
  const std::int32_t code = PaperCodeOf(sheet);
  const bool hasName = code != kUserDefinedPaper;
  const SheetAnswer answer = WarnOfUnkeptSheet(
      {.size = SizeText(sheet.width, sheet.height),
       .namedPaper = hasName ? PaperText(code, sheet.width, sheet.height) : QString(),
       .printers = hasName ? QStringList() : PrintersWithSheet()},
      this);
  if (answer == SheetAnswer::kUseNamedPaper) {
    if (paper_->findData(code) < 0) InsertPaper(code, sheet);
    paper_->setCurrentIndex(paper_->findData(code));
  }
  return answer != SheetAnswer::kGoBack;
}

void PageSetupDialog::accept() {
  if (MayBeUsed()) QDialog::accept();
}

std::string PageSetupDialog::ChosenPrinter() const {
  const bool isChosen = printer_->currentIndex() != shownPrinter_;
  return isChosen ? printer_->currentText().toStdString() : std::string();
}

void PageSetupDialog::Apply() {
  if (PaperCode() == kUserDefinedPaper) {
    document_.PutPaperWidth(static_cast<float>(width_->Twips()));
    document_.PutPaperHeight(static_cast<float>(height_->Twips()));
  } else {
    document_.PutPaperSize(PaperCode());
  }
  document_.PutOrientation(landscape_->isChecked() ? kLandscape : kPortrait);
  document_.PutMarginLeft(left_->Twips());
  document_.PutMarginTop(top_->Twips());
  document_.PutMarginRight(right_->Twips());
  document_.PutMarginBottom(bottom_->Twips());
  if (!ChosenPrinter().empty()) document_.PutDevice(ChosenPrinter());
}

}  // namespace td
