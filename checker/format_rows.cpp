#include "checker/format_rows.h"

#include <algorithm>

#include "platform/failure.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

std::optional<std::size_t> ColumnIndex(const StoredRows& table, std::string_view name) {
  const std::string wanted = LowerCase(name);
  const auto found = std::ranges::find_if(
      table.columns, [&](const std::string& column) { return LowerCase(column) == wanted; });
  if (found == table.columns.end()) return std::nullopt;
  return static_cast<std::size_t>(found - table.columns.begin());
}

}  // namespace

const Value* StoredRow::Find(std::string_view column) const {
  const std::optional<std::size_t> index = ColumnIndex(*table_, column);
  return index ? &table_->rows[index_][*index] : nullptr;
}

bool StoredRow::HasNull(std::string_view column) const {
  const Value* value = Find(column);
  return value != nullptr && IsNull(*value);
}

std::string StoredRow::Text(std::string_view column) const {
  const Value* value = Find(column);
  return value == nullptr || std::holds_alternative<Bytes>(*value) ? std::string() : ToText(*value);
}

std::optional<double> StoredRow::Number(std::string_view column) const {
  const Value* value = Find(column);
  if (value == nullptr || !IsNumeric(*value)) return std::nullopt;
  return ToDouble(*value);
}

bool StoredRow::Flag(std::string_view column) const {
  const Value* value = Find(column);
  try {
    return value != nullptr && IsSet(*value);
  } catch (const Failure&) {
    return false;  // a text that is no flag
  }
}

StoredRows ReadRows(Recordset& rows, const std::vector<std::string_view>& wanted) {
  StoredRows table;
  const auto isThere = [&](std::string_view column) {
    try {
      (void)rows.Field(column);
      return true;
    } catch (const Failure& failure) {
      if (failure.Number() == kNoSuchColumn) return false;
      if (failure.Number() == kNoCurrentRow) return true;
      throw;
    }
  };
  for (const std::string_view column : wanted) {
    if (isThere(column)) table.columns.emplace_back(column);
  }
  for (; !rows.Eof(); rows.MoveNext()) {
    std::vector<Value>& row = table.rows.emplace_back();
    for (const std::string& column : table.columns) row.push_back(rows.Field(column));
  }
  return table;
}

void ResolveVariables(FormatRows& format) {
  if (ColumnIndex(format.items, "FFieldName")) return;
  for (std::size_t i = 0; i < format.ItemCount(); ++i) {
    const Value* name = format.Item(i).Find("FObjectFieldName");
    Value field;
    for (std::size_t j = 0; name != nullptr && !IsNull(*name) && j < format.variables.rows.size();
         ++j) {
      const StoredRow variable(format.variables, j);
      if (variable.Text("FVarCaption") != ToText(*name)) continue;
      const Value* column = variable.Find("FVarName");
      if (column != nullptr) field = *column;
      break;
    }
    format.items.rows[i].push_back(std::move(field));
  }
  format.items.columns.emplace_back("FFieldName");
}

const std::vector<std::string_view>& BillColumns() {
  static const std::vector<std::string_view> columns = {
      "FTDBillID",      "FTranType",     "FTDBillName",   "FSelected",    "FPaperSize",
      "FPaperWidth",    "FPaperHeight",  "FOrientation",  "FRowsPerPage", "FRowHeight",
      "FAdjuctLeft",    "FAdjuctTop",    "FAdjuctHeader", "FQtysPerRow",  "FHeaderPerPage",
      "FFooterPerPage", "FIntegralPage", "FPrintDevice",  "FMarginleft",  "FMarginTop",
      "FMarginRight",   "FMarginBottom"};
  return columns;
}

const std::vector<std::string_view>& ItemColumns() {
  static const std::vector<std::string_view> columns = {
      "FTDBillID",    "FSite",       "FLeft",          "FTop",       "FWidth",
      "FHeight",      "FTypeID",     "FIsVariant",     "FMustPrint", "FObjectFieldName",
      "FFieldName",   "FFontName",   "FObjectCaption", "FFontSize",  "FFontBold",
      "FFontItalic",  "FAlignMent",  "FWordWrap",      "FAutoSize",  "FFormatString",
      "Fborderwidth", "FPicturePath"};
  return columns;
}

const std::vector<std::string_view>& VariableColumns() {
  static const std::vector<std::string_view> columns = {"FTranType", "FVarCaption", "FVarName"};
  return columns;
}

const std::vector<std::string_view>& MachinePaperColumns() {
  static const std::vector<std::string_view> columns = {
      "FIP", "FTDBillName", "FPaperSize", "FPaperWidth", "FPaperHeight", "FOrientation", "FDevice"};
  return columns;
}

const std::vector<std::string_view>& AreaPrinterColumns() {
  static const std::vector<std::string_view> columns = {"FIp", "FTranType", "FTdBillName",
                                                        "FStockArea", "FPrintDevice"};
  return columns;
}

}  // namespace td::checker
