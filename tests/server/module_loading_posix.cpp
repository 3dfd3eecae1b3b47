#include <dlfcn.h>
#include <stdlib.h>

#include <stdexcept>

#include "module_loading.h"

namespace td {

const char* const kSettingsVariable = "XDG_CONFIG_HOME";

void* LoadModule(const std::string& path) {
  void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) throw std::runtime_error(dlerror());
  return module;
}

void UnloadModule(void* module) {
  dlclose(module);
}

void* ExportOf(void* module, const char* name) {
  return dlsym(module, name);
}

void PutVariable(const char* name, const std::string& value) {
  setenv(name, value.c_str(), 1);
}

}  // namespace td
