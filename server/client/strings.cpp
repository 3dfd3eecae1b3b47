#include <cstdlib>
#include <cstring>

#include "client/client.h"
#include "text_encoding/utf16.h"

TdString TdMakeString(const char* utf8) {
  try {
    const std::u16string units = td::ToUtf16(utf8 == nullptr ? "" : utf8);
    return TdMakeStringOfUnits(units.data(), static_cast<std::uint32_t>(units.size()));
  } catch (const std::exception&) {
    return nullptr;
  }
}

char* TdTextOfString(TdString string) {
  try {
    const std::string text = td::ToUtf8({string, TdStringLength(string)});
    auto* copy = static_cast<char*>(std::malloc(text.size() + 1));
    if (copy != nullptr) std::memcpy(copy, text.c_str(), text.size() + 1);
    return copy;
  } catch (const std::exception&) {
    return nullptr;
  }
}
