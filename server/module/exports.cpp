// The four functions of the module; exports.map, or exports.def, keeps every other name inside. The
// build says how a function is marked as one of them (TD_EXPORT).
#include "client/registration.h"
#include "client/result_failure.h"
#include "interface/binary_interface.h"
#include "module/class_factory.h"
#include "module/component.h"
#include "module/module_file.h"
#include "objects/failures.h"

namespace {

void GetClassObject(const TdGuid& classId, const TdGuid& interfaceId, void** factory) {
  td::Component& component = td::Component::Get();
  component.Claim();
  struct Unclaim {
    ~Unclaim() { td::Component::Get().RemoveUse(); }
  } const unclaim;
  const auto made = td::NewClassFactory(classId);
  if (made.Get() == nullptr) throw td::CallFailure(TD_CLASS_NOT_AVAILABLE);
  const TdResult found = made.Get()->table->QueryInterface(made.Get(), &interfaceId, factory);
  if (TD_FAILED(found)) throw td::CallFailure(found);
}

template <class Action>
TdResult RunRegistration(Action action) noexcept {
  try {
    try {
      action();
      return TD_OK;
    } catch (const td::ResultFailure& failure) {
      throw td::Failure(failure.Result(), failure.what());
    }
  } catch (...) {
    return td::EndDirectCall();
  }
}

}  // namespace

extern "C" {

TD_EXPORT TdResult TD_CALL DllGetClassObject(const TdGuid* classId, const TdGuid* interfaceId,
                                             void** factory) {
  if (factory == nullptr) return TD_BAD_POINTER;
  *factory = nullptr;
  if (classId == nullptr || interfaceId == nullptr) return TD_BAD_POINTER;
  try {
    GetClassObject(*classId, *interfaceId, factory);
    return TD_OK;
  } catch (...) {
    return td::EndDirectCall();
  }
}

TD_EXPORT TdResult TD_CALL DllCanUnloadNow() {
  return td::Component::Get().IsUnused() ? TD_OK : TD_FALSE;
}

TD_EXPORT TdResult TD_CALL DllRegisterServer() {
  return RunRegistration([] {
    const std::filesystem::path& module = td::ModuleFile();
    td::WriteRegistration({{TD_PRINTER_CLASS_NAME, kTdPrinterClass, module},
                           {TD_SESSION_CLASS_NAME, kTdSessionClass, module},
                           {TD_SETTINGS_CLASS_NAME, kTdSettingsClass, module}});
  });
}

TD_EXPORT TdResult TD_CALL DllUnregisterServer() {
  return RunRegistration([] { td::RemoveRegistration(td::ModuleFile()); });
}

}  // extern "C"
