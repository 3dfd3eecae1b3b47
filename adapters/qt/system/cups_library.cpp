#include "qt/system/cups_library.h"

#include <dlfcn.h>

#include <string>

#include "print_calls/device_failure.h"

namespace td {
namespace {

struct Library {
  void* handle;
  std::string reason;  // without a handle
};

std::string LastReason() {
  const char* reason = dlerror();
  return reason == nullptr ? std::string() : reason;
}

// Stays loaded: the libraries that it needs leave memory behind each time they are unloaded.
const Library& Loaded() {
  static const Library library = [] {
    void* const handle = dlopen("libcups.so.2", RTLD_NOW | RTLD_LOCAL);
    return Library{handle, handle == nullptr ? LastReason() : std::string()};
  }();
  return library;
}

[[noreturn]] void Fail(const std::string& reason) {
  throw DeviceFailure(kDeviceIo, "这台机器没有打印系统，未打印：" + reason);
}

}  // namespace

void* CupsFunction::Find() const {
  if (!HasCups()) Fail(Loaded().reason);
  void* function = dlsym(Loaded().handle, name);
  if (function == nullptr) Fail(LastReason());
  return function;
}

bool HasCups() {
  return Loaded().handle != nullptr;
}

const CupsLibrary& Cups() {
  static const CupsLibrary library;
  return library;
}

}  // namespace td
