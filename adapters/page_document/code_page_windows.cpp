#include <algorithm>

#include "page_document/code_page.h"
#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"

namespace td {

std::string FromCodePage(std::string bytes, int codePage) {
  if (bytes.empty()) return {};
  const auto wanted = static_cast<UINT>(codePage);
  const UINT known = IsValidCodePage(wanted) != FALSE ? wanted : 1252;
  // A byte gives at most one unit.
  std::wstring wide(bytes.size(), L'\0');
  const int units = MultiByteToWideChar(known, 0, bytes.data(), static_cast<int>(bytes.size()),
                                        wide.data(), static_cast<int>(wide.size()));
  wide.resize(static_cast<std::size_t>(units));
  // Bytes that begin no character come as characters for private use, in this stretch.
  std::ranges::replace_if(
      wide, [](wchar_t unit) { return unit >= 0xF8F0 && unit <= 0xF8FF; }, wchar_t{0xFFFD});
  return FromWide(wide);
}

}  // namespace td
