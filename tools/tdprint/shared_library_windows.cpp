#include "files/path_text.h"
#include "platform/failure.h"
#include "shared_library.h"
#include "windows/api/system_error.h"
#include "windows/api/windows_api.h"

namespace td {

SharedLibrary::SharedLibrary(const std::filesystem::path& path)
    : handle_(LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH)) {
  if (handle_ != nullptr) return;
  const DWORD error = GetLastError();
  if (error == ERROR_BAD_EXE_FORMAT) {
    throw Failure(kInvalidCall, TextOf(path) +
                                    " is not of this program's kind: 32-bit and 64-bit "
                                    "modules have a tdprint.exe each");
  }
  throw Failure(kInvalidCall, TextOf(path) + ": " + SystemWords(error));
}

SharedLibrary::~SharedLibrary() {
  FreeLibrary(static_cast<HMODULE>(handle_));
}

void* SharedLibrary::Address(const char* name) const {
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

}  // namespace td
