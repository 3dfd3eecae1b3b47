// Strings in blocks of the system's allocator for them, which every host frees them with.
#include <cstdint>

#include "client/client.h"
#include "windows/api/windows_api.h"

// Behind the system's other headers.
#include <oleauto.h>

TdString TdMakeStringOfUnits(const TdUnit* units, std::uint32_t count) {
  const TdUnit none = 0;
  const TdUnit* first = count == 0 ? &none : units;
  return reinterpret_cast<TdString>(
      SysAllocStringLen(reinterpret_cast<const wchar_t*>(first), count));
}

void TdFreeString(TdString string) {
  SysFreeString(reinterpret_cast<wchar_t*>(string));
}

std::uint32_t TdStringLength(TdString string) {
  return SysStringLen(reinterpret_cast<wchar_t*>(string));
}
