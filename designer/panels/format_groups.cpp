#include "designer/panels/format_groups.h"

#include <QSignalBlocker>
#include <algorithm>

#include "designer/model/sheet_layout.h"
#include "designer/panels/paper_names.h"
#include "designer/view/words.h"
#include "page_document/paper.h"
#include "platform/print_surface.h"
#include "text/conversions.h"

namespace td::designer {
namespace {

constexpr int kKeepPaper = 0;

QString Millimetres(double twips) {
  return QString::number(MillimetresOf(twips), 'f', 1);
}

QStringList Printers(const Workspace& workspace) {
  QStringList names;
  for (const std::string& name : workspace.printers) names << QString::fromStdString(name);
  return names;
}

}  // namespace

NameGroup::NameGroup(EditedFormat& rows, Workspace& workspace)
    : FieldGroup(Say("Format")), workspace_(workspace) {
  Add(Say("&Name"), new LineField(rows, "FTDBillName"),
      Say("The name by which programs ask for it. Without single quotes."));
  billType_ = new QLabel;
  billType_->setObjectName(QStringLiteral("BillType"));
  Form().addRow(Say("Bill type"), billType_);
  AddWide(new FlagField(rows, "FSelected", Say("&Used where a program names no format")),
          Say("One format of each bill type: saving takes the mark off the others."));
}

void NameGroup::Refresh() {
  FieldGroup::Refresh();
  billType_->setNum(workspace_.document.Current().BillType());
}

PaperGroup::PaperGroup(EditedFormat& rows, Workspace& workspace)
    : FieldGroup(Say("Sheet")), rows_(rows), workspace_(workspace) {
  paper_ = new ChoiceList;
  paper_->setObjectName(QStringLiteral("FPaperSize"));
  paper_->setAccessibleName(Say("Paper"));
  paper_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  paper_->setMinimumContentsLength(12);
  paper_->addItem(Say("as the printer has it"), kKeepPaper);
  paper_->addItem(Say("its own size"), kUserDefinedPaper);
  for (const NamedPaper& paper : NamedPapers()) paper_->addItem(paper.name, paper.code);
  connect(paper_, &QComboBox::activated, this,
          [this](int index) { Choose(paper_->itemData(index).toInt()); });
  Form().addRow(Say("&Paper"), paper_);
  width_ = MakeSide("FPaperWidth", Say("&Width"));
  height_ = MakeSide("FPaperHeight", Say("He&ight"));
  Add(Say("&Turned"),
      new CodeField(rows, "FOrientation", {{0, Say("Upright")}, {1, Say("Across")}}));
  sheet_ = AddNote();
  sheet_->setObjectName(QStringLiteral("PrintedSheet"));
}

NumberBox* PaperGroup::MakeSide(const char* column, const QString& label) {
  auto* side = new NumberBox(kSize);
  side->setObjectName(QString::fromUtf8(column));
  side->setToolTip(QString::fromUtf8(column));
  side->entered = [this, column](double millimetres) { EnterSide(column, millimetres); };
  side->left = [this] { rows_.EndGesture(); };
  Form().addRow(label, side);
  return side;
}

// Width and height are stored with a standard paper, too: without a width no paper is set.
void PaperGroup::Choose(int code) {
  const Format& format = workspace_.document.Current();
  Command command = SetNumberOnFormat(format, "FPaperSize", code);
  PaperExtent sheet{format.row.Number("FPaperWidth"), format.row.Number("FPaperHeight")};
  sheet = StandardPaper(code).value_or(sheet);
  command = Together(std::move(command),
                     SetNumberOnFormat(format, "FPaperWidth", StoredTwips(sheet.width)));
  command = Together(std::move(command),
                     SetNumberOnFormat(format, "FPaperHeight", StoredTwips(sheet.height)));
  rows_.Do(std::move(command));
  RefreshPaper();
}

void PaperGroup::EnterSide(const char* column, double millimetres) {
  const Format& format = workspace_.document.Current();
  rows_.DoWithin(column,
                 Together(SetNumberOnFormat(format, "FPaperSize", kUserDefinedPaper),
                          SetNumberOnFormat(format, column, StoredTwips(TwipsOf(millimetres)))));
}

void PaperGroup::Refresh() {
  FieldGroup::Refresh();
  RefreshPaper();
}

void PaperGroup::RefreshPaper() {
  const QSignalBlocker blocker(paper_);
  const Format& format = workspace_.document.Current();
  const SharedValue code = rows_.Shared("FPaperSize");
  const SharedValue width = rows_.Shared("FPaperWidth");
  const bool isSet = IsNumeric(code.value) && !IsNull(width.value);
  const int index = isSet ? paper_->findData(static_cast<int>(ToDouble(code.value)))
                          : paper_->findData(kKeepPaper);
  paper_->setPlaceholderText(WordsFor(code));
  paper_->setCurrentIndex(index);
  for (NumberBox* side : {width_, height_}) {
    const SharedValue stored = rows_.Shared(side->objectName().toStdString());
    side->setEnabled(stored.isThere);
    if (IsNumeric(stored.value)) {
      side->ShowNumber(MillimetresOf(ToDouble(stored.value)));
    } else {
      side->ShowWords(WordsFor(stored));
    }
  }
  const bool isKept = !isSet || ToDouble(code.value) == kKeepPaper;
  const SheetLayout layout = LayoutOf(format);
  sheet_->setText(isKept ? Say("The sheet is the one that the printer has then.")
                         : Say("Prints on %1 × %2 mm, as it is held.")
                               .arg(Millimetres(layout.width), Millimetres(layout.height)));
}

RowsGroup::RowsGroup(EditedFormat& rows, Workspace& workspace)
    : FieldGroup(Say("Rows and pages")), workspace_(workspace) {
  Add(Say("&Rows a page"),
      new NumberField(rows, "FRowsPerPage", {NumberUnit::kNone, 0, 1, 10000, 1}));
  Add(Say("Row hei&ght"), new NumberField(rows, "FRowHeight", kSize));
  AddWide(new FlagField(rows, "FHeaderPerPage", Say("Head on every page")),
          Say("Else on the first page of each bill."));
  AddWide(new FlagField(rows, "FFooterPerPage", Say("Foot on every page")),
          Say("Else at the end of each bill."));
  AddWide(new FlagField(rows, "FIntegralPage", Say("Fill a part page with empty rows")),
          Say("What stands behind the rows then always stands at the same place."));
  note_ = AddNote();
  note_->setObjectName(QStringLiteral("RowsNote"));
}

void RowsGroup::Refresh() {
  FieldGroup::Refresh();
  const Format& format = workspace_.document.Current();
  const SheetLayout layout = LayoutOf(format);
  const double rows = layout.rowsPerPage * layout.rowHeight;
  const auto box = BandBox(layout, format, ItemSite::kRow);
  const double end = box ? box->Bottom() : rows;
  note_->setText(Say("The rows take %1 mm and end %2 mm below the top of the sheet.")
                     .arg(Millimetres(rows), Millimetres(end)));
}

OffsetGroup::OffsetGroup(EditedFormat& rows) : FieldGroup(Say("Moves everything")) {
  Add(Say("To the right"), new NumberField(rows, "FAdjuctLeft", kAnyLength),
      Say("On all machines. Less than 0 moves to the left."));
  Add(Say("Down"), new NumberField(rows, "FAdjuctTop", kAnyLength),
      Say("On all machines. Less than 0 moves up."));
  Add(Say("From page 2 on"), new NumberField(rows, "FAdjuctHeader", kAnyLength),
      Say("Moves all bands but the head down, or up where it is less than 0. The rows that fit "
          "into it are added to those of a page."));
}

PrinterGroup::PrinterGroup(EditedFormat& rows, Workspace& workspace)
    : FieldGroup(Say("Printer")), rows_(rows), workspace_(workspace) {
  Add(Say("Printer"),
      new ListedTextField(rows, "FPrintDevice", Printers(workspace),
                          ListedTextField::Typing::kWhenFinished),
      Say("Where a printer of exactly this name is installed, the format goes there. Empty: the "
          "default printer."));
  note_ = AddNote();
  note_->setObjectName(QStringLiteral("PrinterNote"));
}

void PrinterGroup::Refresh() {
  FieldGroup::Refresh();
  const SharedValue printer = rows_.Shared("FPrintDevice");
  const QString name = IsNull(printer.value) ? QString() : WordsFor(printer);
  if (name.isEmpty()) {
    note_->setText(Say("It goes to the default printer."));
  } else if (Printers(workspace_).contains(name)) {
    note_->setText({});
  } else {
    note_->setText(Say("This machine has no printer of that name."));
  }
  Form().setRowVisible(note_, !note_->text().isEmpty());
}

UnusedGroup::UnusedGroup(EditedFormat& rows) : FieldGroup(Say("Kept, read by no print")) {
  AddPair(Say("Margins: left"), new NumberField(rows, "FMarginleft", kAnyLength), Say("top"),
          new NumberField(rows, "FMarginTop", kAnyLength));
  AddPair(Say("right"), new NumberField(rows, "FMarginRight", kAnyLength), Say("bottom"),
          new NumberField(rows, "FMarginBottom", kAnyLength));
  Add(Say("Quantities a row"),
      new NumberField(rows, "FQtysPerRow", {NumberUnit::kNone, 2, 0, 10000, 1}));
}

}  // namespace td::designer
