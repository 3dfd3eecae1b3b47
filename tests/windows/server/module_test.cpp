// The DLL as programs of the system see it: by its four functions and by calls by name.
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <initializer_list>
#include <string>
#include <thread>
#include <vector>

#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"

// Behind the system's other headers.
#include <objbase.h>
#include <oleauto.h>

namespace td {
namespace {

constexpr GUID kPrinterClass = {
    0x2389511E, 0xAE07, 0x4A8F, {0xBF, 0x68, 0xF2, 0xD1, 0x55, 0x42, 0xC8, 0x7E}};
constexpr GUID kNoId = {};
constexpr HRESULT kNothingToPrint = static_cast<HRESULT>(0x800403E9);

using GetClassObject = HRESULT(STDAPICALLTYPE*)(const GUID&, const GUID&, void**);
using CanUnloadNow = HRESULT(STDAPICALLTYPE*)();

template <typename Function>
Function FunctionOf(HMODULE module, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

struct Answer {
  HRESULT result = S_OK;
  HRESULT code = S_OK;  // of an exception
  std::string description;
  UINT badArgument = 99;
  VARIANT value{};
};

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

VARIANT Nothing() {
  VARIANT variant{};
  variant.vt = VT_DISPATCH;
  return variant;
}

// `arguments` stand in their order, and are given up.
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

class Module : public testing::Test {
 protected:
  Module() : module_(LoadLibraryW(QBTD_MODULE)) { CoInitialize(nullptr); }
  ~Module() override {
    if (module_ != nullptr) FreeLibrary(module_);
    CoUninitialize();
  }

  [[nodiscard]] HRESULT Get(IClassFactory** factory) const {
    void* found = nullptr;
    const HRESULT result = FunctionOf<GetClassObject>(module_, "DllGetClassObject")(
        kPrinterClass, IID_IClassFactory, &found);
    *factory = static_cast<IClassFactory*>(found);
    return result;
  }

  [[nodiscard]] IDispatch* NewPrinter() const {
    IClassFactory* factory = nullptr;
    EXPECT_EQ(Get(&factory), S_OK);
    void* printer = nullptr;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, &printer), S_OK);
    factory->Release();
    return static_cast<IDispatch*>(printer);
  }

  [[nodiscard]] bool CanBeUnloaded() const {
    return FunctionOf<CanUnloadNow>(module_, "DllCanUnloadNow")() == S_OK;
  }

  HMODULE module_;
};

TEST_F(Module, IsLoadedAndStaysInUseAsLongAsItsObjects) {
  ASSERT_NE(module_, nullptr);
  EXPECT_TRUE(CanBeUnloaded());
  IDispatch* printer = NewPrinter();
  EXPECT_FALSE(CanBeUnloaded());
  printer->Release();
  EXPECT_TRUE(CanBeUnloaded());
  EXPECT_EQ(GetModuleHandleW(L"QbTdPrinter.dll"), module_);
  FreeLibrary(module_);
  module_ = GetModuleHandleW(L"QbTdPrinter.dll");
  EXPECT_EQ(module_, nullptr) << "and leaves the memory then";
}

TEST_F(Module, NamesAreFoundWithoutRegardToCase) {
  IDispatch* printer = NewPrinter();
  Answer answer = Call(printer, L"PRINTOK", DISPATCH_PROPERTYGET, {});
  EXPECT_EQ(answer.result, S_OK);
  EXPECT_EQ(answer.value.vt, VT_BOOL);
  EXPECT_EQ(Call(printer, L"PrintBlankRows", DISPATCH_PROPERTYPUT, {OfNumber(0)}).result, S_OK);
  EXPECT_EQ(Call(printer, L"Dance", DISPATCH_METHOD, {}).result, DISP_E_UNKNOWNNAME);
  printer->Release();
}

TEST_F(Module, WithoutDataAPrintFailsWithItsNumberAndItsWords) {
  IDispatch* printer = NewPrinter();
  const Answer answer = Call(
      printer, L"DoPrint", DISPATCH_METHOD,
      {OfFlag(true), OfText(L"sqlite:x"), OfNumber(21), OfFlag(false), OfFlag(false), Nothing()});
  EXPECT_EQ(answer.result, DISP_E_EXCEPTION);
  EXPECT_EQ(answer.code, kNothingToPrint);
  EXPECT_EQ(answer.description, "没有可供打印的数据!");
  printer->Release();
}

TEST_F(Module, ArgumentsMayBeVariablesOfTheCaller) {
  IDispatch* printer = NewPrinter();
  VARIANT_BOOL flag = VARIANT_TRUE;
  BSTR text = SysAllocString(L"sqlite:x");
  short number = 21;
  IDispatch* data = nullptr;
  VARIANT byFlag{}, byText{}, byNumber{}, byData{};
  byFlag.vt = VT_BYREF | VT_BOOL;
  byFlag.pboolVal = &flag;
  byText.vt = VT_BYREF | VT_BSTR;
  byText.pbstrVal = &text;
  byNumber.vt = VT_BYREF | VT_I2;
  byNumber.piVal = &number;
  byData.vt = VT_BYREF | VT_DISPATCH;
  byData.ppdispVal = &data;
  EXPECT_EQ(
      Call(printer, L"DoPrint", DISPATCH_METHOD, {byFlag, byText, byNumber, byFlag, byFlag, byData})
          .code,
      kNothingToPrint);
  SysFreeString(text);
  printer->Release();
}

TEST_F(Module, WrongArgumentsAreNamed) {
  IDispatch* printer = NewPrinter();
  const Answer wrong = Call(printer, L"DoPrint", DISPATCH_METHOD,
                            {OfFlag(true), OfText(L"sqlite:x"), OfText(L"no number"), OfFlag(false),
                             OfFlag(false), Nothing()});
  EXPECT_EQ(wrong.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(wrong.badArgument, 3U) << "counted from the last one";
  const Answer large =
      Call(printer, L"DoPrint", DISPATCH_METHOD,
           {OfFlag(true), OfText(L"x"), OfNumber(70'000), OfFlag(false), OfFlag(false), Nothing()});
  EXPECT_EQ(large.result, DISP_E_OVERFLOW);
  EXPECT_TRUE(FAILED(Call(printer, L"DoPrint", DISPATCH_METHOD, {OfFlag(true)}).result));
  const Answer many = Call(printer, L"PrintOk", DISPATCH_PROPERTYGET, {OfNumber(1)});
  EXPECT_EQ(many.result, DISP_E_BADPARAMCOUNT);
  printer->Release();
}

// The message queue of this thread is looked after until the other one has ended, as a program's
// own loop does; calls from other apartments arrive by it.
void PumpUntilEndOf(std::thread& other) {
  HANDLE handle = reinterpret_cast<HANDLE>(pthread_gethandle(other.native_handle()));
  while (MsgWaitForMultipleObjects(1, &handle, FALSE, INFINITE, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
  }
  other.join();
}

TEST_F(Module, CallsFromAnotherThreadArriveThroughTheSystem) {
  IDispatch* printer = NewPrinter();
  IStream* way = nullptr;
  ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(IID_IDispatch, printer, &way), S_OK);
  Answer direct;
  Answer through;
  HRESULT factoryOfOther = S_OK;
  std::thread other([&] {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    IClassFactory* factory = nullptr;
    factoryOfOther = Get(&factory);
    direct = Call(printer, L"PrintOk", DISPATCH_PROPERTYGET, {});
    void* proxy = nullptr;
    if (SUCCEEDED(CoGetInterfaceAndReleaseStream(way, IID_IDispatch, &proxy))) {
      through = Call(static_cast<IDispatch*>(proxy), L"PrintOk", DISPATCH_PROPERTYGET, {});
      static_cast<IDispatch*>(proxy)->Release();
    }
    CoUninitialize();
  });
  PumpUntilEndOf(other);
  EXPECT_EQ(factoryOfOther, RPC_E_WRONG_THREAD);
  EXPECT_EQ(direct.code, RPC_E_WRONG_THREAD) << "not the object itself";
  EXPECT_EQ(through.result, S_OK);
  EXPECT_EQ(through.value.vt, VT_BOOL);
  printer->Release();
  EXPECT_TRUE(CanBeUnloaded());
}

}  // namespace
}  // namespace td
