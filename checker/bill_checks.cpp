// The format's row of TDBill.
#include <algorithm>
#include <cmath>

#include "checker/checks.h"
#include "checker/nearest_name.h"
#include "page_document/commands.h"
#include "platform/print_surface.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

using enum FindingKind;

// A sheet or a row below this was measured in millimetres and not in twips.
constexpr double kSmallestSheet = 1000;  // 17.6 mm, both sides
constexpr double kSmallestSide = 450;    // 7.9 mm, one side
constexpr double kSmallestRow = 60;      // 1 mm

void CheckRows(const FormatRows& format, const TrialResult& trial, bool hasRows,
               FindingList& findings) {
  const StoredRow bill = format.Bill();
  const std::string stored = StoredText(bill, "FRowsPerPage");
  const double rows = bill.Number("FRowsPerPage").value_or(0);
  if (rows < 1 && trial.rowsPerPage < 1) {
    findings.Add(kRowsMissing, {stored});
  } else if (rows != std::round(rows)) {
    findings.Add(kRowsFraction, {stored, ToText(std::nearbyint(rows))});
  } else if (rows == 1 && !hasRows) {
    findings.Add(kRowsOne, {});
  }

  const std::string storedHeight = StoredText(bill, "FRowHeight");
  const std::optional<double> height = bill.Number("FRowHeight");
  if (!height || *height <= 0) {
    findings.Add(kRowHeightMissing,
                 {storedHeight, trial.rowHeight > 0 ? ToText(trial.rowHeight) : ""});
  } else if (*height < kSmallestRow) {
    findings.Add(kRowHeightSmall,
                 {MillimetresText(*height), TenthsText(*height), TwipsText(*height)},
                 UpdateFormat(format, "FRowHeight=" + TwipsText(*height)));
  }
}

void CheckUserSheet(const FormatRows& format, FindingList& findings) {
  const StoredRow bill = format.Bill();
  const std::optional<double> width = bill.Number("FPaperWidth");
  const std::optional<double> height = bill.Number("FPaperHeight");
  if (!height) {
    findings.Add(kPaperIncomplete, {StoredText(bill, "FPaperSize"), "FPaperHeight"});
    return;
  }
  const double w = *width;
  const double h = *height;
  const bool areBoth = w < kSmallestSheet && h < kSmallestSheet;
  if (areBoth || w < kSmallestSide || h < kSmallestSide) {
    const std::string width = areBoth || w < kSmallestSide ? TwipsText(w) : TenthsText(w);
    const std::string height = areBoth || h < kSmallestSide ? TwipsText(h) : TenthsText(h);
    findings.Add(
        kPaperMillimetres,
        {TenthsText(w), TenthsText(h), MillimetresText(w), MillimetresText(h), width, height},
        UpdateFormat(format, "FPaperWidth=" + width + ",FPaperHeight=" + height));
  } else if (w > h && bill.Flag("FOrientation")) {
    findings.Add(kPaperTurned, {MillimetresText(w), MillimetresText(h)},
                 UpdateFormat(format, "FOrientation=0"));
  }
}

void CheckPaper(const FormatRows& format, const TrialResult& trial, FindingList& findings) {
  const StoredRow bill = format.Bill();
  const std::optional<double> code = bill.Number("FPaperSize");
  if (code == kKeepPaper || !code) {
    findings.Add(kPaperKept, {});
  } else if (!bill.Number("FPaperWidth")) {
    findings.Add(kPaperIncomplete, {StoredText(bill, "FPaperSize"), "FPaperWidth"});
  } else if (code == kUserDefinedPaper) {
    CheckUserSheet(format, findings);
  } else if (!trial.complaints.empty()) {
    findings.Add(kPaperUnknown, {StoredText(bill, "FPaperSize")});
  }
}

void CheckPrinter(const FormatRows& format, const TrialResult& trial, const CheckedMachine& machine,
                  FindingList& findings) {
  const std::vector<std::string> printers = machine.Printers();
  const std::string wanted = format.Bill().Text("FPrintDevice");
  if (!wanted.empty() && std::ranges::find(printers, wanted) == printers.end()) {
    const std::string nearest = NearestName(wanted, printers);
    findings.Add(kPrinterMissing, {wanted, nearest},
                 nearest.empty() ? "" : UpdateFormat(format, "FPrintDevice=" + Quoted(nearest)));
  }
  if (findings.Has(kPaperMillimetres)) return;
  if (trial.printer.empty() || !trial.sheet || !machine.Answers(trial.printer)) return;
  const PaperExtent across{trial.sheet->height, trial.sheet->width};
  if (machine.Margins(trial.printer, *trial.sheet) || machine.Margins(trial.printer, across)) {
    return;
  }
  findings.Add(kPrinterSheet, {trial.printer, MillimetresText(trial.sheet->width),
                               MillimetresText(trial.sheet->height)});
}

// All items close to the corner: they were placed in millimetres.
void CheckScale(const FormatRows& format, const TrialResult& trial, FindingList& findings) {
  constexpr std::size_t kFewestItems = 3;
  constexpr double kMostOfSheet = 1.0 / 15;
  if (format.ItemCount() < kFewestItems || !trial.sheet) return;
  double right = 0;
  double bottom = 0;
  for (std::size_t i = 0; i < format.ItemCount(); ++i) {
    const StoredRow item = format.Item(i);
    const auto number = [&](const char* column) { return item.Number(column).value_or(0); };
    right = std::max(right, number("FLeft") + number("FWidth"));
    bottom = std::max(bottom, number("FTop") + number("FHeight"));
  }
  if (right > trial.sheet->width * kMostOfSheet || bottom > trial.sheet->height * kMostOfSheet) {
    return;
  }
  const Value* id = format.Bill().Find("FTDBillID");
  const std::string change =
      "FLeft=FLeft*1440/25.4,FTop=FTop*1440/25.4,FWidth=FWidth*1440/25.4,FHeight=FHeight*1440/25.4";
  findings.Add(kItemsMillimetres,
               {ToText(static_cast<std::int64_t>(format.ItemCount())), MillimetresText(right),
                MillimetresText(bottom)},
               id == nullptr ? ""
                             : "update TDBillDetail set " + change +
                                   " where FTDBillID=" + format.Bill().Text("FTDBillID"));
}

}  // namespace

void CheckBill(const FormatRows& format, const TrialResult& trial, const CheckedMachine& machine,
               bool hasRows, FindingList& findings) {
  if (format.ItemCount() == 0) {
    findings.Add(kNoItems, {StoredText(format.Bill(), "FTDBillID")});
  }
  if (format.name.find('\'') != std::string::npos) findings.Add(kNameQuote, {format.name});
  if (HasOuterBlanks(format.name)) findings.Add(kNameBlanks, {format.name});
  CheckRows(format, trial, hasRows, findings);
  CheckPaper(format, trial, findings);
  CheckPrinter(format, trial, machine, findings);
  CheckScale(format, trial, findings);
  for (const std::string& column : trial.missingOfTable) findings.Add(kTableColumn, {column});
  for (const std::string& message : trial.messages) findings.Add(kRunMessage, {message});
}

}  // namespace td::checker
