// Fields that show a sum as a number or in Chinese capitals.
#pragma once

#include <string_view>
#include <variant>

#include "items/band.h"

namespace td {

// Where a sum comes from: a sum over the page, a sum over the run, or a column of the parked clone.
using SumSource = std::variant<double PageSums::*, double RunSums::*, std::string_view>;

enum class SumForm { kNumber, kWords };

// What a sum is in a window that does not keep all of them.
enum class WithoutAllSums { kSame, kNoValue, kOrdinaryColumn };

struct SumField {
  SumSource source{};
  SumForm form = SumForm::kNumber;
  WithoutAllSums withoutAllSums = WithoutAllSums::kSame;
};

// The item's picture decides between plain and formatted text.
void DrawSum(Band& band, const SumField& sum);

}  // namespace td
