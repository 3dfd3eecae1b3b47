// The one formatting operation: a value under a picture such as "0.00".
#pragma once

#include <string>
#include <string_view>

#include "platform/value.h"

namespace td {

// Day and month names of date pictures.
enum class FormatLanguage { kChinese, kEnglish };

// The text of `value` under `picture` (UTF-8). Weeks start on Sunday and the first week of a year
// holds 1 January. An empty picture gives the value's plain text. docs/format-pictures.md is the
// reference of the grammar.
[[nodiscard]] std::string FormatValue(const Value& value, std::string_view picture,
                                      FormatLanguage language = FormatLanguage::kChinese);

}  // namespace td
