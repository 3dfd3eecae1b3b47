// Values as they are written in statements.
#pragma once

#include <string>
#include <string_view>

#include "platform/value.h"

namespace td {

// What differs between the engines. Every one reads a text in single quotes, the quote doubled.
struct LiteralForm {
  std::string_view beforeText = {};
  std::string_view beforeBytes = "x'";
  std::string_view behindBytes = "'";
  // Numbers and flags stand in quotes, too: the column's type decides what they are.
  bool quotesNumbers = false;
};

// Null, texts and bytes as they are; whole numbers, and reals with as many digits as give the same
// number back and a point or an exponent; flags as 1 and 0; dates as yyyy-MM-dd HH:mm:ss with up to
// six decimals. What is no finite number is Null.
[[nodiscard]] std::string SqlLiteral(const Value& value, const LiteralForm& form);

}  // namespace td
