#include "module/module_file.h"

#include <dlfcn.h>

#include "platform/failure.h"

namespace td {
namespace {

// The name under which the loader knows the module; it may be relative.
const char* LoadedName() {
  Dl_info info{};
  return dladdr(reinterpret_cast<const void*>(&KeepModuleInMemory), &info) == 0 ? ""
                                                                                : info.dli_fname;
}

std::filesystem::path Canonical(const char* name) noexcept {
  try {
    return std::filesystem::canonical(name);
  } catch (const std::exception&) {
    return {};
  }
}

// Found while the module is being loaded: later the program may stand in another folder.
const std::filesystem::path moduleFile = Canonical(LoadedName());

}  // namespace

const std::filesystem::path& ModuleFile() {
  return moduleFile;
}

void KeepModuleInMemory() {
  void* handle = dlopen(LoadedName(), RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
  if (handle == nullptr) throw Failure(kInvalidCall, "无法把组件保留在内存中。");
  dlclose(handle);  // the mark stays
}

}  // namespace td
