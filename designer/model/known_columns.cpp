#include "designer/model/known_columns.h"

#include <algorithm>
#include <array>
#include <utility>

#include "sql_support/sql_scanner.h"

namespace td::designer {
namespace {

using enum ColumnKind;

constexpr std::array kFormatColumns = {
    KnownColumn{"FTranType", kWhole},
    KnownColumn{"FTDBillName", kText},
    KnownColumn{"FSelected", kFlag},
    KnownColumn{"FPaperSize", kWhole, 9},
    KnownColumn{"FPaperWidth", kLength, 11905.51},
    KnownColumn{"FPaperHeight", kLength, 16837.8},
    KnownColumn{"FOrientation", kWhole},
    KnownColumn{"FRowsPerPage", kNumber, 10},
    KnownColumn{"FRowHeight", kLength, 340.16},
    KnownColumn{"FAdjuctLeft", kLength},
    KnownColumn{"FAdjuctTop", kLength},
    KnownColumn{"FAdjuctHeader", kLength},
    KnownColumn{"FQtysPerRow", kNumber},
    KnownColumn{"FHeaderPerPage", kFlag, 1},
    KnownColumn{"FFooterPerPage", kFlag},
    KnownColumn{"FIntegralPage", kFlag},
    KnownColumn{"FPrintDevice", kText},
    KnownColumn{"FMarginleft", kLength},
    KnownColumn{"FMarginTop", kLength},
    KnownColumn{"FMarginRight", kLength},
    KnownColumn{"FMarginBottom", kLength},
};

constexpr std::array kItemColumns = {
    KnownColumn{"FSite", kWhole, 1},
    KnownColumn{"FTypeID", kWhole},
    KnownColumn{"FLeft", kLength},
    KnownColumn{"FTop", kLength},
    KnownColumn{"FWidth", kLength, 1700.79},
    KnownColumn{"FHeight", kLength, 283.46},
    KnownColumn{"FIsVariant", kFlag},
    KnownColumn{"FMustPrint", kFlag},
    KnownColumn{"FObjectFieldName", kText},
    KnownColumn{"FObjectCaption", kText},
    KnownColumn{"FFontName", kText, 0, "宋体"},
    KnownColumn{"FFontSize", kNumber, 9},
    KnownColumn{"FFontBold", kFlag},
    KnownColumn{"FFontItalic", kFlag},
    KnownColumn{"FAlignMent", kWhole},
    KnownColumn{"FWordWrap", kFlag},
    KnownColumn{"FAutoSize", kFlag},
    KnownColumn{"FFormatString", kText},
    KnownColumn{"Fborderwidth", kWhole, 1},
    KnownColumn{"FPicturePath", kText},
};

constexpr std::array kVariableColumns = {
    KnownColumn{"FVarCaption", kText},
    KnownColumn{"FVarName", kText},
};

Value InitialValue(const KnownColumn& column) {
  if (column.kind == kText) return std::string(column.text);
  return NumberValue(column.number);
}

}  // namespace

std::span<const KnownColumn> FormatColumns() {
  return kFormatColumns;
}
std::span<const KnownColumn> ItemColumns() {
  return kItemColumns;
}
std::span<const KnownColumn> VariableColumns() {
  return kVariableColumns;
}

const KnownColumn* FindColumn(std::span<const KnownColumn> columns, std::string_view name) {
  const auto found = std::ranges::find_if(
      columns, [name](const KnownColumn& column) { return EqualWords(column.name, name); });
  return found == columns.end() ? nullptr : &*found;
}

ColumnNamesRef NamesOf(std::span<const KnownColumn> columns) {
  std::vector<std::string> names;
  for (const KnownColumn& column : columns) names.emplace_back(column.name);
  return std::make_shared<const ColumnNames>(std::move(names));
}

Row NewRow(std::span<const KnownColumn> columns) {
  return NewRow(columns, NamesOf(columns));
}

Row NewRow(std::span<const KnownColumn> columns, const ColumnNamesRef& names) {
  std::vector<Value> values;
  for (std::size_t i = 0; i < names->Size(); ++i) {
    const KnownColumn* column = FindColumn(columns, names->Name(i));
    values.push_back(column == nullptr ? Value(Null{}) : InitialValue(*column));
  }
  return {names, std::move(values)};
}

}  // namespace td::designer
