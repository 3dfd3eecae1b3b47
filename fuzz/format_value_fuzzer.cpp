// Any value under any picture is a text: a stored format may hold whatever somebody typed. The
// input is the value's text and, behind the first line end, the picture.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/failure.h"
#include "text/conversions.h"
#include "text/format_value.h"

namespace {

// A picture that asks for a number or a date of an impossible value is refused, nothing else.
void Format(const td::Value& value, const std::string& picture) {
  for (const auto language : {td::FormatLanguage::kChinese, td::FormatLanguage::kEnglish}) {
    try {
      (void)td::FormatValue(value, picture, language);
    } catch (const td::Failure&) {
    }
  }
}

// 0 for a number beyond all doubles, which is refused.
double NumberIn(const std::string& text) {
  try {
    return td::Val(std::string_view(text));
  } catch (const td::Failure&) {
    return 0;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  const std::size_t lineEnd = input.find('\n');
  if (lineEnd == std::string::npos) return 0;
  const std::string text = input.substr(0, lineEnd);
  const std::string picture = input.substr(lineEnd + 1);

  Format(text, picture);
  Format(td::Null(), picture);
  const double number = NumberIn(text);
  Format(number, picture);
  Format(td::Date{number}, picture);
  return 0;
}
