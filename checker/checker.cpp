#include "checker/checker.h"

#include <algorithm>
#include <utility>

#include "checker/barcode_checks.h"
#include "checker/checks.h"
#include "checker/finding_messages.h"
#include "checker/settings_checks.h"
#include "checker/sheet_checks.h"
#include "checker/text_checks.h"

namespace td::checker {
namespace {

// A run over rows that have everything, and, if there are none of their own, all of the findings.
void CheckAlone(const FormatRows& format, const CheckedMachine& machine,
                const CheckOptions& options, bool hasRows, FindingList& findings) {
  SheetCheck sheet(format);
  TextCheck texts(format, false);
  BarcodeCheck barcodes(machine.Barcodes(), false);
  const TrialResult trial =
      RunTrial(format, machine, {.byArea = options.byArea, .printer = options.printer},
               {&sheet, &texts, &barcodes});
  CheckBill(format, trial, machine, hasRows, findings);
  const auto columns = hasRows ? ColumnsOf(*options.rows) : std::vector<std::string>();
  CheckItems(format, trial, options.byArea, columns, findings);
  CheckFormatStrings(format, trial, findings);
  CheckFonts(format, findings);
  sheet.Report(trial, machine, findings);
  if (hasRows) return;
  texts.Report(findings);
  barcodes.Report(findings);
}

// A message that the format's own values cause was found already.
void AddMessagesOfRows(const TrialResult& trial, FindingList& findings) {
  for (std::size_t i = 0; i < trial.items.size(); ++i) {
    const std::string& message = trial.items[i].message;
    const bool isKnown = findings.HasItem(i, FindingKind::kFieldBand) ||
                         findings.HasItem(i, FindingKind::kPictureFile) ||
                         findings.HasItem(i, FindingKind::kFontSize);
    if (!message.empty() && !isKnown) {
      findings.AddItem(i, FindingKind::kRunMessage, {message, "1"});
    }
  }
  if (findings.Has(FindingKind::kRunMessage)) return;
  for (const std::string& message : trial.messages) {
    findings.Add(FindingKind::kRunMessage, {message});
  }
}

void CheckWithRows(const FormatRows& format, const CheckedMachine& machine,
                   const CheckOptions& options, Database* database, const std::string& connection,
                   FindingList& findings) {
  if (!CheckGroups(*options.rows->Clone(), options.byArea, findings)) return;
  SheetCheck sheet(format);
  TextCheck texts(format, true);
  BarcodeCheck barcodes(machine.Barcodes(), true);
  const TrialResult trial = RunTrial(format, machine,
                                     {.byArea = options.byArea,
                                      .printer = options.printer,
                                      .rows = options.rows->Clone(),
                                      .database = database,
                                      .connection = connection},
                                     {&sheet, &texts, &barcodes});
  AddMessagesOfRows(trial, findings);
  CheckData(format, trial, *options.rows->Clone(), findings);
  sheet.Report(trial, machine, findings);
  texts.Report(findings);
  barcodes.Report(findings);
}

}  // namespace

std::vector<Finding> CheckFormat(const FormatRows& format, const CheckedMachine& machine,
                                 const CheckOptions& options, Database* database,
                                 const std::string& connection) {
  FindingList findings(format);
  CheckAlone(format, machine, options, options.rows != nullptr, findings);
  if (options.rows) CheckWithRows(format, machine, options, database, connection, findings);
  return findings.Take();
}

CheckResult CheckDatabase(Database& database, const std::string& connection,
                          const Selection& selection, const CheckedMachine& machine,
                          const CheckOptions& options) {
  const StoredFormats stored = ReadFormats(database, connection);
  CheckResult result{CheckSelection(stored, selection), 0};
  const auto append = [&](std::vector<Finding> found) {
    std::ranges::move(found, std::back_inserter(result.findings));
  };
  for (const std::size_t bill : SelectedFormats(stored, selection)) {
    append(CheckFormat(ReadFormat(database, connection, stored, bill), machine, options, &database,
                       connection));
    ++result.formats;
  }
  append(CheckMachines(stored, selection, machine));
  return result;
}

int CountOf(const std::vector<Finding>& findings, Severity severity) {
  return static_cast<int>(std::ranges::count(
      findings, severity, [](const Finding& finding) { return MessageOf(finding.kind).severity; }));
}

Severity WorstOf(const std::vector<Finding>& findings) {
  if (CountOf(findings, Severity::kError) > 0) return Severity::kError;
  return CountOf(findings, Severity::kWarning) > 0 ? Severity::kWarning : Severity::kHint;
}

}  // namespace td::checker
