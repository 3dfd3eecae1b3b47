#include <dlfcn.h>

#include "platform/failure.h"
#include "shared_library.h"

namespace td {

SharedLibrary::SharedLibrary(const std::filesystem::path& path)
    : handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (handle_ == nullptr) throw Failure(kInvalidCall, dlerror());
}

SharedLibrary::~SharedLibrary() {
  dlclose(handle_);
}

void* SharedLibrary::Address(const char* name) const {
  return dlsym(handle_, name);
}

}  // namespace td
