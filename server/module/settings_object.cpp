#include "module/settings_object.h"

#include <string>

#include "desktop/desktop_platform.h"
#include "module/component.h"
#include "objects/dispatch_object.h"
#include "objects/variant_values.h"
#include "service/td_set.h"

namespace td {
namespace {

enum MemberId : std::int32_t { kTdSet = 1 };

void ShowSettings(const std::string& PromptString, std::int16_t TranType) {
  td::TDSet(Component::Get().Desktop().Get()).ShowSettings(PromptString, TranType);
}

class SettingsObject final : public DispatchObject<SettingsObject, TdSettings> {
 public:
  SettingsObject() : DispatchObject(&kTable) {}

  static const TdGuid& OwnInterface() { return kTdSettingsId; }
  static bool Has(const TdGuid& id) {
    return SameGuid(id, kTdDispatchId) || SameGuid(id, kTdSettingsId);
  }
  static void Enter() { Component::Get().CheckThread(); }
  static const Members& AllMembers() {
    static const Members members = {
        {"TDSet", kTdSet, TD_CALL_METHOD, {"PromptString", "TranType"}, 2}};
    return members;
  }

  void Call(std::int32_t /*member*/, const CallArguments& arguments, TdVariant& /*result*/) {
    ShowSettings(arguments.Text(0), arguments.Integer16(1));
  }

 private:
  static TdResult TD_CALL TDSet(TdSettings* self, TdString PromptString, std::int16_t TranType) {
    return Run(self, [=](SettingsObject&) { ShowSettings(TextOf(PromptString), TranType); });
  }

  static const TdSettingsTable kTable;

  Use use_;
};

const TdSettingsTable SettingsObject::kTable = {
    QueryInterface, AddRef, Release, GetTypeInfoCount, GetTypeInfo, GetIDsOfNames, Invoke, TDSet};

}  // namespace

TdObject* NewSettingsObject() {
  return reinterpret_cast<TdObject*>(static_cast<TdSettings*>(new SettingsObject));
}

}  // namespace td
