#include <cstdlib>
#include <stdexcept>

#include "module_loading.h"
#include "windows/api/system_error.h"
#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"

namespace td {

const char* const kSettingsVariable = "APPDATA";

void* LoadModule(const std::string& path) {
  void* module = LoadLibraryW(ToWide(path).c_str());
  if (module == nullptr) throw std::runtime_error(SystemWords(GetLastError()));
  return module;
}

void UnloadModule(void* module) {
  FreeLibrary(static_cast<HMODULE>(module));
}

void* ExportOf(void* module, const char* name) {
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(module), name));
}

void PutVariable(const char* name, const std::string& value) {
  _wputenv_s(ToWide(name).c_str(), ToWide(value).c_str());
}

}  // namespace td
