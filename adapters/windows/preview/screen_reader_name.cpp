#include "windows/preview/screen_reader_name.h"

#include <initguid.h>

// Behind what makes its identifiers known.
#include <oleacc.h>

#include "windows/api/wide_text.h"

namespace td {

void NameForScreenReaders(HWND control, const std::string& name) {
  const HRESULT begun = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  IAccPropServices* services = nullptr;
  if (SUCCEEDED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                 IID_IAccPropServices, reinterpret_cast<void**>(&services)))) {
    services->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                             PROPID_ACC_NAME, ToWide(name).c_str());
    services->Release();
  }
  if (SUCCEEDED(begun)) CoUninitialize();
}

}  // namespace td
