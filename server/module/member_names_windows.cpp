#include "module/member_names.h"
#include "windows/api/windows_api.h"

// Behind the system's other headers.
#include <dispex.h>
#include <oleauto.h>

namespace td {
namespace {

constexpr TdGuid kScriptDispatchId = {
    0xA6EF9860, 0xC720, 0x11D0, {0x93, 0x37, 0x00, 0xA0, 0xC9, 0x0D, 0xCA, 0xA9}};

// Classes of scripts may answer for their members through this interface alone.
TdResult FindScriptMember(TdDispatch* object, const TdUnit* name, std::int32_t& id) {
  void* found = nullptr;
  if (TD_FAILED(object->table->QueryInterface(object, &kScriptDispatchId, &found))) {
    return TD_UNKNOWN_NAME;
  }
  auto* script = static_cast<IDispatchEx*>(found);
  BSTR text = SysAllocString(reinterpret_cast<const wchar_t*>(name));
  DISPID number = DISPID_UNKNOWN;
  const HRESULT result = script->GetDispID(text, fdexNameCaseInsensitive, &number);
  SysFreeString(text);
  script->Release();
  id = number;
  return result;
}

}  // namespace

TdResult FindMemberOf(TdDispatch* object, const TdUnit* name, std::int32_t& id) {
  const TdResult found = object->table->GetIDsOfNames(object, &kTdNoId, &name, 1, 0, &id);
  if (!TD_FAILED(found)) return found;
  const TdResult inScript = FindScriptMember(object, name, id);
  return TD_FAILED(inScript) ? found : inScript;
}

}  // namespace td
