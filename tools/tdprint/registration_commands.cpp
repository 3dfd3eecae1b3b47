#include "registration_commands.h"

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <type_traits>

#include "client/client.h"
#include "client/result_failure.h"
#include "complaint.h"
#include "files/path_text.h"
#include "platform/failure.h"
#include "program_folder.h"
#include "registration_report.h"
#include "shared_library.h"

namespace td {
namespace {

namespace fs = std::filesystem;

fs::path FindModule(const std::string& given) {
  if (!given.empty()) {
    if (!fs::exists(PathOf(given))) throw Failure(kFileNotFound, given + " isn't there");
    return fs::absolute(PathOf(given));
  }
  fs::path installed = (ProgramFolder() / TDPRINT_MODULE_FROM_PROGRAM).lexically_normal();
  if (fs::exists(installed)) return installed;
  throw Failure(kFileNotFound, TextOf(installed) + " isn't there; name the module: --module");
}

struct Free {
  void operator()(char* text) const { std::free(text); }
};

class Module {
 public:
  explicit Module(const fs::path& path) : path_(path), library_(path) {}

  // Calls DllRegisterServer or DllUnregisterServer.
  void Call(const char* name) const {
    const TdResult result = Function<TdRegisterServerFunction>(name)();
    if (TD_FAILED(result)) throw Failure(result, LastError());
  }

 private:
  template <class Type>
  [[nodiscard]] Type Function(const char* name) const {
    auto* function = library_.Find<std::remove_pointer_t<Type>>(name);
    if (function == nullptr) {
      throw Failure(kInvalidCall, TextOf(path_) + " isn't the module QbTdPrinter");
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
  SharedLibrary library_;
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
    const fs::path module = FindModule(arguments.module);
    Module(module).Call("DllRegisterServer");
    TellRegistered(module);
  });
}

ExitStatus UnregisterModule(const UnregisterArguments& arguments) {
  return Run("not unregistered", [&] {
    const fs::path module = FindModule(arguments.module);
    const std::vector<std::string> before = Registrations();
    Module(module).Call("DllUnregisterServer");
    TellRemoved(before);
  });
}

}  // namespace td
