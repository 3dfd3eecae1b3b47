// A program that ends while it still has an object of the module:
//   leaving_host.exe MODULE CLASS
#include <string>

#include "windows/api/windows_api.h"

// Behind the system's other headers.
#include <objbase.h>
#include <oleauto.h>

int wmain(int count, wchar_t** arguments) {
  if (count != 3) return 2;
  CoInitialize(nullptr);
  const HMODULE module = LoadLibraryW(arguments[1]);
  CLSID id{};
  if (module == nullptr || FAILED(CLSIDFromString(arguments[2], &id))) return 3;
  const auto get = reinterpret_cast<HRESULT(STDAPICALLTYPE*)(const GUID&, const GUID&, void**)>(
      reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
  void* factory = nullptr;
  if (FAILED(get(id, IID_IClassFactory, &factory))) return 4;
  void* object = nullptr;
  if (FAILED(
          static_cast<IClassFactory*>(factory)->CreateInstance(nullptr, IID_IDispatch, &object))) {
    return 5;
  }
  std::wstring name = L"PrintOk";
  wchar_t* names = name.data();
  DISPID member = 0;
  auto* printer = static_cast<IDispatch*>(object);
  printer->GetIDsOfNames(GUID{}, &names, 1, 0, &member);
  DISPPARAMS none{};
  VARIANT value{};
  const HRESULT called =
      printer->Invoke(member, GUID{}, 0, DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr);
  CoUninitialize();  // with the object still there
  return SUCCEEDED(called) ? 0 : 6;
}
