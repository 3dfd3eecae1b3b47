#include "qt/system/cups_library.h"

#include <dlfcn.h>

#include <string>

#include "print_calls/device_failure.h"

namespace td {
namespace {

// Stays loaded: the libraries that it needs leave memory behind each time they are unloaded.
void* Library() {
  static void* const library = dlopen("libcups.so.2", RTLD_NOW | RTLD_LOCAL);
  return library;
}

}  // namespace

void* CupsFunction::Find() const {
  void* function = Library() == nullptr ? nullptr : dlsym(Library(), name);
  if (function == nullptr) {
    const char* reason = dlerror();
    throw DeviceFailure(kDeviceIo, std::string("这台机器没有打印系统，未打印：") +
                                       (reason == nullptr ? name : reason));
  }
  return function;
}

const CupsLibrary& Cups() {
  static const CupsLibrary library;
  return library;
}

}  // namespace td
