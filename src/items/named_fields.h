// The fields of DrawItems whose value is not the column of the same name.
#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "items/band.h"

namespace td {

// Fields that the head routines know, too.
inline constexpr std::string_view kPageNumberField = "fpageno";
inline constexpr std::string_view kTotalPageNumberField = "ftotalpageno";

// Columns of the print data that make up one quantity in two units. The columns that are tested
// cross over between the fields; forms in use rely on that.
struct QuantityColumns {
  std::string_view main;
  std::string_view testedForNull;  // empty: no test
  std::string_view testedForZero;
  std::string_view small;
  std::string_view mainUnit;
  std::string_view smallUnit;
  std::string_view fallback;
};

// Where a sum comes from: a sum over the page, a sum over the run, or a column of the parked clone.
using SumSource = std::variant<double PageSums::*, double RunSums::*, std::string_view>;

// What a field is in a window that does not keep all sums.
enum class WithoutAllSums { kSame, kNoValue, kOrdinaryColumn };

struct NamedField {
  std::string_view name;
  void (*draw)(Band&, const NamedField&);
  std::variant<std::monostate, SumSource, QuantityColumns> source{};
  WithoutAllSums withoutAllSums = WithoutAllSums::kSame;
};

// The field named `name`, in any case, or nothing if it is an ordinary column in that window.
[[nodiscard]] const NamedField* FindNamedField(std::string_view name, const WindowKind& kind);

// The drawings. A number or words sum: the picture decides between plain and formatted text.
void DrawPageOfBill(Band& band, const NamedField& field);
void DrawTotalPageNumber(Band& band, const NamedField& field);
void DrawSum(Band& band, const NamedField& field);
void DrawSumInWords(Band& band, const NamedField& field);
void DrawOrderId(Band& band, const NamedField& field);
void DrawQuantity(Band& band, const NamedField& field);

}  // namespace td
