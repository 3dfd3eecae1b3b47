#include "checker/settings_checks.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "checker/finding_list.h"
#include "checker/nearest_name.h"
#include "page_document/paper.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

using enum FindingKind;

std::string Joined(const std::vector<std::string>& names) {
  std::string joined;
  for (const std::string& name : names) joined += (joined.empty() ? "" : ", ") + name;
  return joined;
}

std::vector<std::string> FormatNames(const StoredFormats& stored,
                                     const std::optional<std::string>& billType = {}) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < stored.bills.rows.size(); ++i) {
    const StoredRow bill(stored.bills, i);
    if (!billType || bill.Text("FTranType") == *billType) {
      names.push_back(bill.Text("FTDBillName"));
    }
  }
  return names;
}

bool Contains(const std::vector<std::string>& names, const std::string& name) {
  return std::ranges::find(names, name) != names.end();
}

struct BillType {
  std::int64_t number = 0;
  std::vector<std::string> selected;
  std::map<std::string, std::int64_t> names;
};

void CheckBillType(const BillType& type, bool isNamed, std::vector<Finding>& findings) {
  const std::string number = ToText(type.number);
  const auto add = [&](FindingKind kind, Arguments arguments, std::string sql = {},
                       std::string format = {}) {
    findings.push_back({.kind = kind,
                        .billType = type.number,
                        .format = std::move(format),
                        .arguments = std::move(arguments),
                        .sql = std::move(sql)});
  };
  // Whoever names a format doesn't need the selected one.
  if (!isNamed && type.selected.empty()) {
    const bool isOnly = type.names.size() == 1;
    const std::string& name = type.names.begin()->first;
    add(kNoneSelected, {number},
        isOnly ? "update TDBill set FSelected=1 where FTranType=" + number +
                     " and FTDBillName=" + Quoted(name)
               : "");
  }
  if (!isNamed && type.selected.size() > 1) {
    add(kSeveralSelected,
        {number, ToText(static_cast<std::int64_t>(type.selected.size())), Joined(type.selected)},
        "update TDBill set FSelected=0 where FTranType=" + number + " and FTDBillName<>" +
            Quoted(type.selected.front()));
  }
  for (const auto& [name, count] : type.names) {
    if (count > 1) add(kNameTwice, {number, ToText(count), name}, {}, name);
  }
}

// Whether a row of a machine belongs to what is looked at.
bool Concerns(const Selection& selection, const StoredFormats& stored, const std::string& format) {
  if (!selection.format.empty()) return format == selection.format;
  if (!selection.billType) return true;
  return Contains(FormatNames(stored, ToText(*selection.billType)), format);
}

class MachineCheck {
 public:
  MachineCheck(const StoredFormats& stored, const CheckedMachine& machine)
      : stored_(stored),
        names_(FormatNames(stored)),
        printers_(machine.Printers()),
        id_(machine.Id()) {}

  std::vector<Finding> findings;

  void CheckPaper(const StoredRow& row) {
    const std::string machine = row.Text("FIP");
    const std::string format = row.Text("FTDBillName");
    const std::string printer = row.Text("FDevice");
    const std::optional<double> code = row.Number("FPaperSize");
    const std::string removal = "delete from TDBill_PaperSize where FIP=" + Quoted(machine) +
                                " and FTDBillName=" + Quoted(format);
    if (!Contains(names_, format)) {
      Add(kMachineNoFormat, format, {machine, format, NearestName(format, names_)}, removal);
      return;
    }
    if (code == kUserDefinedPaper) {
      Add(kMachineSheet, format, {machine, format}, removal);
    } else if (code && *code != kKeepPaper && !StandardPaper(ToInteger32(Value(*code)))) {
      Add(kMachinePaper, format, {machine, format, row.Text("FPaperSize")}, removal);
    }
    if (machine == id_ && !printer.empty() && !Contains(printers_, printer)) {
      Add(kMachinePrinter, format, {machine, format, printer}, removal);
    }
  }

  void CheckArea(const StoredRow& row) {
    const std::string machine = row.Text("FIp");
    const std::string type = row.Text("FTranType");
    const std::string format = row.Text("FTdBillName");
    const std::string area = row.Text("FStockArea");
    const std::string printer = row.Text("FPrintDevice");
    const std::string removal =
        "delete from TDBill_AreaPrinterDevice where FIp=" + Quoted(machine) +
        " and FTranType=" + type + " and FTdBillName=" + Quoted(format) +
        " and FStockArea=" + Quoted(area);
    if (!Contains(FormatNames(stored_, type), format)) {
      Add(kAreaNoFormat, format, {area, type, format}, removal);
    } else if (machine == id_ && !printer.empty() && !Contains(printers_, printer)) {
      Add(kAreaPrinter, format, {machine, area, format, printer});
    }
  }

 private:
  void Add(FindingKind kind, const std::string& format, Arguments arguments, std::string sql = {}) {
    findings.push_back(
        {.kind = kind, .format = format, .arguments = std::move(arguments), .sql = std::move(sql)});
  }

  const StoredFormats& stored_;
  std::vector<std::string> names_;
  std::vector<std::string> printers_;
  std::string id_;
};

}  // namespace

std::vector<Finding> CheckSelection(const StoredFormats& stored, const Selection& selection) {
  std::vector<Finding> findings;
  std::map<std::int64_t, BillType> types;
  std::map<std::string, std::vector<std::string>> owners;  // of a format number
  for (std::size_t i = 0; i < stored.bills.rows.size(); ++i) {
    const StoredRow bill(stored.bills, i);
    const std::string name = bill.Text("FTDBillName");
    owners[StoredText(bill, "FTDBillID")].push_back(name);
    if (!selection.Has(bill)) continue;
    const auto number = static_cast<std::int64_t>(bill.Number("FTranType").value_or(0));
    BillType& type = types[number];
    type.number = number;
    ++type.names[name];
    if (bill.Number("FSelected") == 1.0) type.selected.push_back(name);
  }
  if (types.empty()) {
    const std::string number = selection.billType ? ToText(*selection.billType) : "";
    const std::vector<std::string> names =
        FormatNames(stored, selection.billType ? std::optional(number) : std::nullopt);
    findings.push_back(
        {.kind = kNoFormat,
         .billType =
             selection.billType ? std::optional<std::int64_t>(*selection.billType) : std::nullopt,
         .arguments = {number, selection.format, NearestName(selection.format, names)}});
  }
  for (const auto& [number, type] : types) {
    CheckBillType(type, !selection.format.empty(), findings);
  }
  for (const auto& [number, names] : owners) {
    const bool isConcerned = std::ranges::any_of(
        names, [&](const std::string& name) { return Concerns(selection, stored, name); });
    if (names.size() < 2 || number == "NULL" || !isConcerned) continue;
    findings.push_back(
        {.kind = kNumberShared,
         .arguments = {number, ToText(static_cast<std::int64_t>(names.size())), Joined(names)}});
  }
  return findings;
}

std::vector<Finding> CheckMachines(const StoredFormats& stored, const Selection& selection,
                                   const CheckedMachine& machine) {
  MachineCheck check(stored, machine);
  for (std::size_t i = 0; i < stored.machinePapers.rows.size(); ++i) {
    const StoredRow row(stored.machinePapers, i);
    if (Concerns(selection, stored, row.Text("FTDBillName"))) check.CheckPaper(row);
  }
  for (std::size_t i = 0; i < stored.areaPrinters.rows.size(); ++i) {
    const StoredRow row(stored.areaPrinters, i);
    if (Concerns(selection, stored, row.Text("FTdBillName"))) check.CheckArea(row);
  }
  return std::move(check.findings);
}

}  // namespace td::checker
