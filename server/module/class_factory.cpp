#include "module/class_factory.h"

#include "module/component.h"
#include "module/printer_object.h"
#include "module/session_object.h"
#include "module/settings_object.h"
#include "objects/counted_object.h"

namespace td {
namespace {

using ObjectMaker = TdObject* (*)();

class ClassFactory final : public CountedObject<ClassFactory, TdClassFactory> {
 public:
  explicit ClassFactory(ObjectMaker make) : CountedObject(&kTable), make_(make) {}

  static bool Has(const TdGuid& id) { return SameGuid(id, kTdClassFactoryId); }
  static void Enter() { Component::Get().CheckThread(); }

 private:
  static TdResult TD_CALL CreateInstance(TdClassFactory* self, TdObject* outer,
                                         const TdGuid* interfaceId, void** object) {
    if (object == nullptr) return TD_BAD_POINTER;
    *object = nullptr;
    if (interfaceId == nullptr) return TD_BAD_POINTER;
    if (outer != nullptr) return TD_NO_AGGREGATION;
    return Run(self, [=](const ClassFactory& factory) {
      const auto made = Reference<TdObject>::Taking(factory.make_());
      const TdResult found = made.Get()->table->QueryInterface(made.Get(), interfaceId, object);
      if (TD_FAILED(found)) throw CallFailure(found);
    });
  }

  static TdResult TD_CALL LockServer(TdClassFactory* self, std::int32_t lock) {
    return Run(self, [lock](ClassFactory&) {
      if (lock != 0) {
        Component::Get().Lock();
      } else {
        Component::Get().Unlock();
      }
    });
  }

  static const TdClassFactoryTable kTable;

  ObjectMaker make_;
  Use use_;
};

const TdClassFactoryTable ClassFactory::kTable = {QueryInterface, AddRef, Release, CreateInstance,
                                                  LockServer};

}  // namespace

Reference<TdClassFactory> NewClassFactory(const TdGuid& classId) {
  ObjectMaker make = nullptr;
  if (SameGuid(classId, kTdPrinterClass)) make = NewPrinterObject;
  if (SameGuid(classId, kTdSessionClass)) make = NewSessionObject;
  if (SameGuid(classId, kTdSettingsClass)) make = NewSettingsObject;
  if (make == nullptr) return {};
  return Reference<TdClassFactory>::Taking(new ClassFactory(make));
}

}  // namespace td
