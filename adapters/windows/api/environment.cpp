#include "windows/api/environment.h"

#include "windows/api/windows_api.h"

namespace td {

std::wstring EnvironmentText(const wchar_t* variable) {
  std::wstring text(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        GetEnvironmentVariableW(variable, text.data(), static_cast<DWORD>(text.size()));
    const bool fits = length < text.size();
    text.resize(length);
    if (fits) return text;
  }
}

}  // namespace td
