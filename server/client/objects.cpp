#include <dlfcn.h>
#include <strings.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <vector>

#include "client/client.h"
#include "client/registration.h"
#include "client/result_failure.h"
#include "client/trusted_files.h"

namespace td {
namespace {

namespace fs = std::filesystem;

struct LoadedModule {
  void* handle;
  TdGetClassObjectFunction getClassObject;
  TdCanUnloadNowFunction canUnloadNow;
};

// Held while a module is loaded or unloaded and until a class object keeps it in use. A module may
// give objects back to the program, which may then call these functions again.
std::recursive_mutex modulesMutex;

// Never destroyed: objects of the modules may outlive every static of this library.
std::vector<LoadedModule>& Modules() {
  static auto* const modules = new std::vector<LoadedModule>;
  return *modules;
}

template <class Function>
Function FunctionOf(void* handle, const char* name) {
  return reinterpret_cast<Function>(dlsym(handle, name));
}

bool IsListed(void* handle) {
  return std::ranges::count(Modules(), handle, &LoadedModule::handle) > 0;
}

LoadedModule Load(const fs::path& path) {
  // The loader would take the empty name for the program itself.
  if (path.empty()) throw ResultFailure(TD_FILE_NOT_FOUND, "没有给出模块的文件名。");
  void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) throw ResultFailure(TD_FAILURE, "无法装载模块：" + std::string(dlerror()));
  for (const LoadedModule& module : Modules()) {
    if (module.handle != handle) continue;
    dlclose(handle);  // counted once
    return module;
  }
  const LoadedModule module{handle,
                            FunctionOf<TdGetClassObjectFunction>(handle, "DllGetClassObject"),
                            FunctionOf<TdCanUnloadNowFunction>(handle, "DllCanUnloadNow")};
  if (module.getClassObject == nullptr || module.canUnloadNow == nullptr) {
    dlclose(handle);
    throw ResultFailure(TD_FAILURE, "“" + path.string() + "”不是组件模块。");
  }
  Modules().push_back(module);
  return module;
}

void Check(TdResult result, const char* description) {
  if (TD_FAILED(result)) throw ResultFailure(result, description);
}

TdClassFactory* FactoryOf(const fs::path& path, const TdGuid& classId) {
  const std::lock_guard lock(modulesMutex);
  void* found = nullptr;
  Check(Load(path).getClassObject(&classId, &kTdClassFactoryId, &found),
        "模块没有给出这个类，或组件正被另一个线程使用。");
  return static_cast<TdClassFactory*>(found);
}

TdDispatch* Create(const fs::path& path, const TdGuid& classId) {
  TdClassFactory* factory = FactoryOf(path, classId);
  void* object = nullptr;
  const TdResult created =
      factory->table->CreateInstance(factory, nullptr, &kTdDispatchId, &object);
  factory->table->Release(factory);
  Check(created, "无法创建对象。");
  return static_cast<TdDispatch*>(object);
}

RegisteredClass Find(const char* className) {
  for (const RegisteredClass& one : ReadRegistration()) {
    if (strcasecmp(one.name.c_str(), className) == 0) return one;
  }
  throw ResultFailure(TD_NAME_NOT_REGISTERED,
                      "类“" + std::string(className) + "”没有登记，请先登记组件。");
}

// Runs what may fail, and hands over the object or the failure.
template <class Action>
TdResult Deliver(TdDispatch** object, TdExceptionInfo* info, Action action) {
  if (info != nullptr) *info = {};
  if (object == nullptr) return TD_BAD_POINTER;
  *object = nullptr;
  try {
    *object = action();
    return TD_OK;
  } catch (const ResultFailure& failure) {
    if (info != nullptr) {
      info->result = failure.Result();
      info->description = TdMakeString(failure.what());
    }
    return failure.Result();
  } catch (const std::exception&) {
    return TD_OUT_OF_MEMORY;
  }
}

}  // namespace
}  // namespace td

TdResult TdCreateObject(const char* className, TdDispatch** object, TdExceptionInfo* info) {
  if (className == nullptr) return TD_BAD_POINTER;
  return td::Deliver(object, info, [className] {
    const td::RegisteredClass found = td::Find(className);
    (void)td::OpenTrustedFile(found.module);
    return td::Create(found.module, found.id);
  });
}

TdResult TdCreateObjectFromModule(const char* path, const TdGuid* classId, TdDispatch** object,
                                  TdExceptionInfo* info) {
  if (path == nullptr || classId == nullptr) return TD_BAD_POINTER;
  return td::Deliver(object, info, [path, classId] { return td::Create(path, *classId); });
}

void TdUnloadUnusedModules() {
  try {
    const std::lock_guard lock(td::modulesMutex);
    for (const td::LoadedModule& module : std::vector<td::LoadedModule>(td::Modules())) {
      if (!td::IsListed(module.handle) || module.canUnloadNow() != TD_OK) continue;
      std::erase_if(td::Modules(),
                    [&](const td::LoadedModule& listed) { return listed.handle == module.handle; });
      dlclose(module.handle);
    }
  } catch (const std::exception&) {
    return;  // no memory for the list: they stay
  }
}

char* TdRegistrationFile() {
  try {
    const std::filesystem::path file = td::RegistrationFile();
    return file.empty() ? nullptr : strdup(file.c_str());
  } catch (const std::exception&) {
    return nullptr;
  }
}
