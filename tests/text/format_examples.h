// The tables of examples in docs/format-pictures.md.
#pragma once

#include <string>
#include <vector>

#include "platform/value.h"
#include "text/format_value.h"

namespace td {

struct FormatExample {
  int line = 0;  // of the file
  Value value;
  std::string picture;
  std::string result;
  FormatLanguage language = FormatLanguage::kChinese;
};

// Fails with std::runtime_error on a row that can't be read.
[[nodiscard]] std::vector<FormatExample> ReadFormatExamples(const std::string& path);

}  // namespace td
