// The columns that a designer knows, of the three tables that a format lies in. All others belong
// to the application.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "designer/model/row.h"

namespace td::designer {

enum class ColumnKind {
  kWhole,   // a number without decimals, or a code
  kLength,  // twips
  kNumber,
  kFlag,  // 1 or 0
  kText,
};

struct KnownColumn {
  std::string_view name;
  ColumnKind kind;
  double number = 0;           // of a new row
  std::string_view text = {};  // of a new row, where the kind is a text
};

inline constexpr std::string_view kFormatTable = "TDBill";
inline constexpr std::string_view kItemTable = "TDBillDetail";
inline constexpr std::string_view kVariableTable = "TDVariant";

// Without FTDBillID, which links a format to its items and is the store's business, and without
// FTranType of the variables, which is that of the format.
[[nodiscard]] std::span<const KnownColumn> FormatColumns();
[[nodiscard]] std::span<const KnownColumn> ItemColumns();
[[nodiscard]] std::span<const KnownColumn> VariableColumns();

// The column of that name, in any case, or nothing.
[[nodiscard]] const KnownColumn* FindColumn(std::span<const KnownColumn> columns,
                                            std::string_view name);

// The names of all columns of a span, and the row that a new item or format begins with.
[[nodiscard]] ColumnNamesRef NamesOf(std::span<const KnownColumn> columns);
[[nodiscard]] Row NewRow(std::span<const KnownColumn> columns);

// The same with the columns of `names` alone: a table may lack some.
[[nodiscard]] Row NewRow(std::span<const KnownColumn> columns, const ColumnNamesRef& names);

}  // namespace td::designer
