// The rows that are to be printed.
#include <algorithm>
#include <set>

#include "checker/checks.h"
#include "checker/nearest_name.h"
#include "items/named_fields.h"
#include "memory_rows/memory_recordset.h"
#include "platform/failure.h"
#include "state/window_kind.h"
#include "store/template_item.h"
#include "text/characters.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

using enum FindingKind;

bool HasColumn(Recordset& rows, std::string_view column) {
  try {
    (void)rows.Field(column);
    return true;
  } catch (const Failure& failure) {
    return failure.Number() != kNoSuchColumn;
  }
}

// Columns that the rows have: all of them, or those that variables know.
std::vector<std::string> KnownColumns(const FormatRows& format, Recordset& rows) {
  std::vector<std::string> columns = ColumnsOf(rows);
  if (!columns.empty()) return columns;
  for (std::size_t i = 0; i < format.variables.rows.size(); ++i) {
    const std::string name = StoredRow(format.variables, i).Text("FVarName");
    if (!name.empty() && HasColumn(rows, name)) columns.push_back(name);
  }
  return columns;
}

// The first value of a column of which sums take another number than it means.
struct MisreadAmount {
  std::string text;
  std::string taken;
};
std::optional<MisreadAmount> FindMisread(Recordset& rows, const std::string& column) {
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
    const Value* value = rows.Find(column);
    if (value == nullptr) return std::nullopt;
    const auto* text = std::get_if<std::string>(value);
    if (text == nullptr || !IsNumeric(*value)) continue;
    if (Val(*value) != ToDouble(*value)) return MisreadAmount{*text, ToText(Val(*value))};
  }
  return std::nullopt;
}

// What a row's page belongs to; empty if it joins the one before it.
std::string GroupOf(Recordset& rows, bool byArea) {
  const Value& value = rows.Field(byArea ? "FStockArea" : "FInterID");
  if (IsNull(value)) return {};
  const std::string text = ToText(value);
  if (byArea) return std::string(FirstCharacter(text));
  return text == "0" ? std::string() : text;
}

void CheckOrder(Recordset& rows, bool byArea, FindingList& findings) {
  std::set<std::string> ended;
  std::string group;
  for (std::int64_t row = 1; !rows.Eof(); rows.MoveNext(), ++row) {
    const std::string current = GroupOf(rows, byArea);
    if (current == group || current.empty()) continue;
    if (ended.contains(current)) {
      return findings.Add(byArea ? kAreasScattered : kDataScattered, {current, ToText(row)});
    }
    if (!group.empty()) ended.insert(group);
    group = current;
  }
}

class DataCheck {
 public:
  DataCheck(const FormatRows& format, const TrialResult& trial, Recordset& rows,
            FindingList& findings)
      : format_(format),
        trial_(trial),
        rows_(rows),
        knownColumns_(KnownColumns(format, rows)),
        findings_(findings) {}

  void Run() {
    for (std::size_t i = 0; i < trial_.items.size(); ++i) {
      const ItemTrial& item = trial_.items[i];
      for (const auto& [column, use] : item.dataColumns) CheckColumn(i, column, use);
      for (const double* sum : item.sums) CheckSum(i, sum);
      CheckPictureOfText(i);
      if (const auto& next = item.nextBill) {
        findings_.AddItem(i, kNextBill,
                          {next->column, next->bill, next->nextBill, next->shown, next->meant});
      }
    }
    if (trial_.markerRows > 0 && trial_.markerRows < trial_.rows) {
      findings_.Add(kMarkerRows,
                    {ToText(trial_.markerRows), trial_.markerRows == 1 ? "" : "several"});
    }
    if (trial_.lostRows > 0) {
      findings_.Add(kRowsNowhere, {ToText(trial_.lostRows), ToText(trial_.rows),
                                   StoredText(format_.Bill(), "FRowsPerPage")});
    }
    CheckOneRowPages();
  }

 private:
  // One row a page is right where no page without it has come of it. Rows of a single bill can't
  // show that, unless they are of no bill at all.
  void CheckOneRowPages() {
    if (format_.Bill().Number("FRowsPerPage") != 1) return;
    std::set<std::string> bills;
    bool isOfBill = false;
    for (rows_.MoveFirst(); !rows_.Eof(); rows_.MoveNext()) {
      const std::string bill = ToText(rows_.Field("FInterID"));
      bills.insert(bill);
      isOfBill = isOfBill || (!bill.empty() && bill != "0");
    }
    if (isOfBill && (bills.size() == 1 || trial_.pagesWithoutRows > 0)) {
      findings_.Add(kRowsOne, {});
    }
  }

  void CheckColumn(std::size_t index, const std::string& column, const ColumnUse& use) {
    const ItemTrial& item = trial_.items[index];
    const std::string field = format_.Item(index).Text("FFieldName");
    const bool isImage = !item.barcodes.empty() || column == "FItemiD" ||
                         item.met.contains(Circumstance::kNoPicture) || field.empty();
    if (use.isMissing) {
      // A computed field in a band that knows no such field was told of already, and so were
      // blanks in the column's name.
      if (findings_.HasItem(index, kFieldBand) || findings_.HasItem(index, kColumnBlanks)) return;
      if (isImage) return findings_.AddItem(index, kImageColumnMissing, {column});
      const std::string nearest = NearestName(column, knownColumns_);
      findings_.AddItem(index, kColumnMissing, {column, nearest, item.text},
                        Rename(field, column, nearest));
    } else if (use.nulls > 0) {
      CheckNulls(index, column, use, isImage);
    }
  }

  // Quantities in two units lack some of their columns as a rule.
  void CheckNulls(std::size_t index, const std::string& column, const ColumnUse& use,
                  bool isImage) {
    const Arguments arguments = {column,
                                 ToText(use.nulls),
                                 ToText(use.times),
                                 use.firstNullBill,
                                 ToText(use.firstNullRow),
                                 PrintsCaption(index) ? "1" : ""};
    const NamedField* named = FindNamedField(format_.Item(index).Text("FFieldName"), kPlainWindow);
    const bool isQuantity =
        named != nullptr && std::holds_alternative<QuantityColumns>(named->drawing);
    if (isImage) {
      findings_.AddItem(index, kImageValueNull, arguments);
    } else if (use.nulls == use.times && use.times > 1) {
      findings_.AddItem(index, kValueAlwaysNull, {column, arguments.back()});
    } else if (!isQuantity) {
      findings_.AddItem(index, kValueNull, arguments);
    }
  }

  // Whether a label stands where the value is Null.
  [[nodiscard]] bool PrintsCaption(std::size_t index) const {
    const ItemTrial& item = trial_.items[index];
    const std::string caption = format_.Item(index).Text("FObjectCaption");
    return !caption.empty() && caption != format_.Item(index).Text("FObjectFieldName") &&
           !item.met.contains(Circumstance::kRepeatedCaption) &&
           !item.met.contains(Circumstance::kNullInBox);
  }

  // A picture that no value has come under: none of them is a number.
  void CheckPictureOfText(std::size_t index) {
    const ItemTrial& item = trial_.items[index];
    const std::string picture = format_.Item(index).Text("FFormatString");
    if (picture.empty() || item.dataColumns.empty() || item.drawn == 0) return;
    if (item.columnsRead.contains("fformatstring") || !item.barcodes.empty()) return;
    findings_.AddItem(index, kFormatStringUnused, {picture},
                      UpdateItem(format_, index, "FFormatString=''"));
  }

  [[nodiscard]] std::string Rename(const std::string& field, const std::string& column,
                                   const std::string& nearest) const {
    if (nearest.empty() || field != column) return {};
    return "update TDVariant set FVarName=" + Quoted(nearest) +
           " where FTranType=" + ToText(format_.billType) + " and FVarName=" + Quoted(column);
  }

  void CheckSum(std::size_t index, const double* sum) {
    const std::string field = format_.Item(index).Text("FFieldName");
    const std::string& text = trial_.items[index].text;
    const auto found = trial_.sums.find(sum);
    if (found == trial_.sums.end()) {
      if (trial_.rows > 0 && trial_.markerRows == trial_.rows && !HasColumn(rows_, "FMainQty")) {
        findings_.AddItem(index, kMarkerColumnMissing, {field, text});
      }
      return;
    }
    for (const std::string& column : found->second.columns) {
      if (!HasColumn(rows_, column)) {
        findings_.AddItem(index, kSumColumnMissing, {field, column, text});
      } else if (const auto misread = FindMisread(rows_, column)) {
        findings_.AddItem(index, kAmountText, {column, misread->text, misread->taken, field});
      }
    }
  }

  const FormatRows& format_;
  const TrialResult& trial_;
  Recordset& rows_;
  std::vector<std::string> knownColumns_;
  FindingList& findings_;
};

}  // namespace

std::vector<std::string> ColumnsOf(const Recordset& rows) {
  std::vector<std::string> columns;
  const auto* memory = dynamic_cast<const MemoryRecordset*>(&rows);
  const ColumnNames* names = memory == nullptr ? nullptr : memory->Columns();
  for (std::size_t i = 0; names != nullptr && i < names->Size(); ++i) {
    columns.push_back(names->Name(i));
  }
  return columns;
}

bool CheckGroups(Recordset& rows, bool byArea, FindingList& findings) {
  if (!HasColumn(rows, "FInterID")) {
    findings.Add(kDataNoBill, {});
    return false;
  }
  if (rows.Eof()) {
    findings.Add(kDataNoRows, {});
    return false;
  }
  if (byArea && !HasColumn(rows, "FStockArea")) {
    findings.Add(kDataNoArea, {});
  } else {
    CheckOrder(rows, byArea, findings);
  }
  return true;
}

void CheckData(const FormatRows& format, const TrialResult& trial, Recordset& rows,
               FindingList& findings) {
  DataCheck(format, trial, rows, findings).Run();
}

}  // namespace td::checker
