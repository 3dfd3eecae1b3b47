#include "module/module_file.h"

#include <dlfcn.h>

#include <QPrinterInfo>

#include "platform/failure.h"

namespace td {
namespace {

// The name under which the loader knows the file that a function is in; it may be relative.
template <class Function>
const char* LoadedName(Function* function) {
  Dl_info info{};
  return dladdr(reinterpret_cast<const void*>(function), &info) == 0 ? "" : info.dli_fname;
}

// Marks a file that is loaded, and by that all files that it needs.
bool KeepInMemory(const char* loadedName) noexcept {
  void* handle = dlopen(loadedName, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
  if (handle == nullptr) return false;
  dlclose(handle);  // the mark stays
  return true;
}

std::filesystem::path Canonical(const char* name) noexcept {
  try {
    return std::filesystem::canonical(name);
  } catch (const std::exception&) {
    return {};
  }
}

// Found while the module is being loaded: later the program may stand in another folder.
const std::filesystem::path moduleFile = Canonical(LoadedName(&KeepModuleInMemory));

// The highest of Qt's libraries that the module uses needs all the others.
[[maybe_unused]] const bool isQtKept =
    KeepInMemory(LoadedName(&QPrinterInfo::availablePrinterNames));

}  // namespace

const std::filesystem::path& ModuleFile() {
  return moduleFile;
}

void KeepModuleInMemory() {
  if (!KeepInMemory(LoadedName(&KeepModuleInMemory))) {
    throw Failure(kInvalidCall, "无法把组件保留在内存中。");
  }
}

}  // namespace td
