#include <iconv.h>

#include <array>
#include <string_view>

#include "page_document/code_page.h"

namespace td {

std::string FromCodePage(std::string bytes, int codePage) {
  constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";
  const std::string name = "CP" + std::to_string(codePage);
  iconv_t converter = iconv_open("UTF-8", name.c_str());
  const auto unknown = reinterpret_cast<iconv_t>(-1);  // NOLINT(performance-no-int-to-ptr)
  if (converter == unknown) converter = iconv_open("UTF-8", "CP1252");
  std::string text;
  char* input = bytes.data();
  std::size_t left = bytes.size();
  while (left > 0) {
    std::array<char, 256> buffer{};
    char* output = buffer.data();
    std::size_t room = buffer.size();
    const bool failed = iconv(converter, &input, &left, &output, &room) == static_cast<size_t>(-1);
    text.append(buffer.data(), buffer.size() - room);
    if (failed && room > 4 && left > 0) {
      text += kReplacementCharacter;
      ++input;
      --left;
    }
  }
  iconv_close(converter);
  return text;
}

}  // namespace td
