#include "called_module.h"

namespace td {
namespace {

using GetClassObject = HRESULT(STDAPICALLTYPE*)(const GUID&, const GUID&, void**);
using WithoutArguments = HRESULT(STDAPICALLTYPE*)();

template <typename Function>
Function FunctionOf(HMODULE module, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace

VARIANT OfFlag(bool flag) {
  VARIANT variant{};
  variant.vt = VT_BOOL;
  variant.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
  return variant;
}

VARIANT OfNumber(int number) {
  VARIANT variant{};
  variant.vt = VT_I4;
  variant.lVal = number;
  return variant;
}

VARIANT OfText(const std::wstring& text) {
  VARIANT variant{};
  variant.vt = VT_BSTR;
  variant.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  return variant;
}

VARIANT OfObject(IDispatch* object) {
  VARIANT variant{};
  variant.vt = VT_DISPATCH;
  variant.pdispVal = object;
  return variant;
}

VARIANT LeftOut() {
  VARIANT variant{};
  variant.vt = VT_ERROR;
  variant.scode = DISP_E_PARAMNOTFOUND;
  return variant;
}

Answer Call(IDispatch* object, const wchar_t* name, WORD kind, std::vector<VARIANT> arguments) {
  Answer answer;
  std::wstring member = name;
  wchar_t* names = member.data();
  DISPID id = DISPID_UNKNOWN;
  answer.result = object->GetIDsOfNames(kNoId, &names, 1, 0, &id);
  if (FAILED(answer.result)) return answer;
  std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
  DISPID put = DISPID_PROPERTYPUT;
  const bool isPut = kind == DISPATCH_PROPERTYPUT;
  DISPPARAMS parameters{reversed.data(), isPut ? &put : nullptr, static_cast<UINT>(reversed.size()),
                        isPut ? 1U : 0U};
  EXCEPINFO exception{};
  answer.result = object->Invoke(id, kNoId, 0, kind, &parameters, &answer.value, &exception,
                                 &answer.badArgument);
  answer.code = exception.scode;
  if (exception.bstrDescription != nullptr) {
    answer.description = FromWide(exception.bstrDescription);
  }
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  for (VARIANT& argument : reversed) VariantClear(&argument);
  return answer;
}

Module::Module() : module_(LoadLibraryW(QBTD_MODULE)) {
  CoInitialize(nullptr);
}

Module::~Module() {
  if (module_ != nullptr) FreeLibrary(module_);
  CoUninitialize();
}

HRESULT Module::Get(const GUID& classId, IClassFactory** factory) const {
  void* found = nullptr;
  const HRESULT result =
      FunctionOf<GetClassObject>(module_, "DllGetClassObject")(classId, IID_IClassFactory, &found);
  *factory = static_cast<IClassFactory*>(found);
  return result;
}

IDispatch* Module::New(const GUID& classId) const {
  IClassFactory* factory = nullptr;
  EXPECT_EQ(Get(classId, &factory), S_OK);
  void* object = nullptr;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, &object), S_OK);
  factory->Release();
  return static_cast<IDispatch*>(object);
}

bool Module::CanBeUnloaded() const {
  return Run("DllCanUnloadNow") == S_OK;
}

HRESULT Module::Run(const char* name) const {
  return FunctionOf<WithoutArguments>(module_, name)();
}

}  // namespace td
