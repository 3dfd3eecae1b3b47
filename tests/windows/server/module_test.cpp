#include <string>
#include <thread>

#include "called_module.h"
#include "message_pump.h"

namespace td {
namespace {

constexpr HRESULT kNothingToPrint = static_cast<HRESULT>(0x800403E9);

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
  const Answer answer = Call(printer, L"DoPrint", DISPATCH_METHOD,
                             {OfFlag(true), OfText(L"sqlite:x"), OfNumber(21), OfFlag(false),
                              OfFlag(false), OfObject(nullptr)});
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
                             OfFlag(false), OfObject(nullptr)});
  EXPECT_EQ(wrong.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(wrong.badArgument, 3U) << "counted from the last one";
  const Answer large = Call(printer, L"DoPrint", DISPATCH_METHOD,
                            {OfFlag(true), OfText(L"x"), OfNumber(70'000), OfFlag(false),
                             OfFlag(false), OfObject(nullptr)});
  EXPECT_EQ(large.result, DISP_E_OVERFLOW);
  EXPECT_TRUE(FAILED(Call(printer, L"DoPrint", DISPATCH_METHOD, {OfFlag(true)}).result));
  const Answer many = Call(printer, L"PrintOk", DISPATCH_PROPERTYGET, {OfNumber(1)});
  EXPECT_EQ(many.result, DISP_E_BADPARAMCOUNT);
  printer->Release();
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
    factoryOfOther = Get(kPrinterClass, &factory);
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
