#include "qt/preview/page_setup_dialog.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <array>

#include "page_document/paper.h"
#include "qt/preview/window_font.h"

namespace td {
namespace {

struct OfferedPaper {
  std::int32_t code;
  const char* name;
};

constexpr std::array kPapers = {
    OfferedPaper{9, "A4"},        OfferedPaper{11, "A5"},
    OfferedPaper{70, "A6"},       OfferedPaper{8, "A3"},
    OfferedPaper{12, "B4 (JIS)"}, OfferedPaper{13, "B5 (JIS)"},
    OfferedPaper{88, "B6 (JIS)"}, OfferedPaper{93, "16K"},
    OfferedPaper{94, "32K"},      OfferedPaper{1, "Letter"},
    OfferedPaper{5, "Legal"},     OfferedPaper{6, "Statement"},
    OfferedPaper{7, "Executive"}, OfferedPaper{14, "Folio"},
    OfferedPaper{3, "Tabloid"},   OfferedPaper{39, "连续纸（宽行）"},
    OfferedPaper{27, "信封 DL"},  OfferedPaper{28, "信封 C5"},
};

QString SizeText(double width, double height) {
  const auto millimetres = [](double twips) {
    return QString::number(qRound(twips / kTwipsPerMillimetre * 10) / 10.0);
  };
  return millimetres(width) + QStringLiteral(" × ") + millimetres(height) + QStringLiteral(" mm");
}

void AddPaper(QComboBox& list, std::int32_t code, const QString& name, double width,
              double height) {
  list.addItem(name + QStringLiteral("（") + SizeText(width, height) + QStringLiteral("）"), code);
}

}  // namespace

PageSetupDialog::PageSetupDialog(PageDocument& document, const std::string& printer,
                                 QWidget* parent)
    : QDialog(parent), document_(document) {
  setWindowTitle(QStringLiteral("页面设置"));
  setFont(FontWithChinese(font()));
  MakeFields();
  FillPrinters(printer);
  FillPapers();
  LayOutFields();
  ConnectFields();
  PaperChosen();
}

void PageSetupDialog::MakeFields() {
  printer_ = new QComboBox(this);
  paper_ = new QComboBox(this);
  width_ = new LengthField(document_.PaperWidth(), this);
  height_ = new LengthField(document_.PaperHeight(), this);
  portrait_ = new QRadioButton(QStringLiteral("纵向(&P)"), this);
  landscape_ = new QRadioButton(QStringLiteral("横向(&L)"), this);
  (document_.Orientation() == kLandscape ? landscape_ : portrait_)->setChecked(true);
  left_ = new LengthField(document_.MarginLeft(), this);
  top_ = new LengthField(document_.MarginTop(), this);
  right_ = new LengthField(document_.MarginRight(), this);
  bottom_ = new LengthField(document_.MarginBottom(), this);
  picture_ = new SheetPicture(this);
  objection_ = new QLabel(this);
  objection_->setWordWrap(true);
  objection_->setStyleSheet(QStringLiteral("color: #b00020"));
  confirm_ = new QPushButton(QStringLiteral("确定"), this);
  confirm_->setDefault(true);
  cancel_ = new QPushButton(QStringLiteral("取消"), this);
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
  for (const OfferedPaper& offered : kPapers) {
    const auto extent = StandardPaper(offered.code);
    if (!extent) continue;
    AddPaper(*paper_, offered.code, QString::fromUtf8(offered.name), extent->width, extent->height);
  }
  const std::int32_t current = document_.PaperSize();
  if (current != kUserDefinedPaper && paper_->findData(current) < 0) {
    AddPaper(*paper_, current, QStringLiteral("纸张 ") + QString::number(current),
             document_.PaperWidth(), document_.PaperHeight());
  }
  paper_->addItem(QStringLiteral("自定义"), kUserDefinedPaper);
  paper_->setCurrentIndex(paper_->findData(current));
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
