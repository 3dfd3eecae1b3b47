#include "registration_commands.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>

#include "client/client.h"
#include "client/registration.h"
#include "client/result_failure.h"
#include "complaint.h"
#include "platform/failure.h"

namespace td {
namespace {

namespace fs = std::filesystem;

fs::path FindModule(const std::string& given) {
  if (!given.empty()) {
    if (!fs::exists(given)) throw Failure(kFileNotFound, given + " isn't there");
    return fs::absolute(given);
  }
  const fs::path programFolder = fs::read_symlink("/proc/self/exe").parent_path();
  fs::path installed = (programFolder / TDPRINT_MODULE_FROM_PROGRAM).lexically_normal();
  if (fs::exists(installed)) return installed;
  throw Failure(kFileNotFound, installed.string() + " isn't there; name the module: --module");
}

struct Free {
  void operator()(char* text) const { std::free(text); }
};

struct Unload {
  void operator()(void* handle) const { dlclose(handle); }
};

class Module {
 public:
  explicit Module(const fs::path& path)
      : path_(path), handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (handle_ == nullptr) throw Failure(kInvalidCall, dlerror());
  }

  // Calls DllRegisterServer or DllUnregisterServer.
  void Call(const char* name) const {
    const TdResult result = Function<TdRegisterServerFunction>(name)();
    if (TD_FAILED(result)) throw Failure(result, LastError());
  }

 private:
  template <class Type>
  [[nodiscard]] Type Function(const char* name) const {
    auto* function = reinterpret_cast<Type>(dlsym(handle_.get(), name));
    if (function == nullptr) {
      throw Failure(kInvalidCall, path_.string() + " isn't the module QbTdPrinter");
    }
    return function;
  }

  // Any object of the module can tell it.
  [[nodiscard]] std::string LastError() const {
    void* found = nullptr;
    auto* getClassObject = Function<TdGetClassObjectFunction>("DllGetClassObject");
    if (TD_FAILED(getClassObject(&kTdPrinterClass, &kTdClassFactoryId, &found))) return {};
    auto* factory = static_cast<TdClassFactory*>(found);
    void* created = nullptr;
    factory->table->CreateInstance(factory, nullptr, &kTdErrorSourceId, &created);
    factory->table->Release(factory);
    if (created == nullptr) return {};
    auto* source = static_cast<TdErrorSource*>(created);
    TdExceptionInfo info{};
    source->table->LastError(source, &info);
    source->table->Release(source);
    const std::unique_ptr<char, Free> text(TdTextOfString(info.description));
    TdClearException(&info);
    return text == nullptr ? std::string() : text.get();
  }

  fs::path path_;
  std::unique_ptr<void, Unload> handle_;
};

// Runs what may fail, with one line about the failure.
template <class Action>
ExitStatus Run(const char* whatFailed, Action action) {
  try {
    action();
    return ExitStatus::kPrinted;
  } catch (const Failure& failure) {
    Complain(whatFailed, failure.Description());
  } catch (const std::exception& failure) {
    Complain(whatFailed, failure.what());
  }
  return ExitStatus::kNotPrinted;
}

}  // namespace

ExitStatus RegisterModule(const RegisterArguments& arguments) {
  return Run("not registered", [&] {
    Module(FindModule(arguments.module)).Call("DllRegisterServer");
    std::cout << "Written to " << RegistrationFile().string() << ":\n";
    for (const RegisteredClass& one : ReadRegistration()) {
      std::cout << "  " << one.name << "  " << TextOfGuid(one.id) << "  " << one.module.string()
                << "\n";
    }
  });
}

ExitStatus UnregisterModule(const UnregisterArguments& arguments) {
  return Run("not unregistered", [&] {
    const bool wasRegistered = fs::exists(RegistrationFile());
    Module(FindModule(arguments.module)).Call("DllUnregisterServer");
    std::cout << (wasRegistered ? "Removed " : "Nothing was registered in ")
              << RegistrationFile().string() << "\n";
  });
}

}  // namespace td
