#include "windows/api/system_error.h"

#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"

namespace td {

std::string SystemWords(unsigned long error) {
  wchar_t* words = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, error, 0, reinterpret_cast<wchar_t*>(&words), 0, nullptr);
  std::wstring_view text(words, length);
  while (!text.empty() && (text.back() <= L' ' || text.back() == L'.' || text.back() == L'。')) {
    text.remove_suffix(1);
  }
  std::string result = text.empty() ? "系统错误 " + std::to_string(error) : FromWide(text);
  LocalFree(words);
  return result;
}

}  // namespace td
