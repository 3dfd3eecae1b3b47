// Registration by the module's own functions, for the machine and for a user without its rights.
#include <array>
#include <optional>
#include <thread>

#include "called_module.h"
#include "interface/binary_interface.h"

// Behind the system's other headers.
#include <sddl.h>

namespace td {
namespace {

constexpr const wchar_t* kPrinterName = L"Software\\Classes\\QbTdPrinter.Printer\\CLSID";
constexpr const wchar_t* kSessionServer =
    L"Software\\Classes\\CLSID\\{BEC9E21A-8357-4EC5-B261-5CEC43B82E3B}\\InprocServer32";
constexpr const wchar_t* kPrinterInterface =
    L"Software\\Classes\\Interface\\{136F0717-EE88-4E14-BE20-17F115F0DCAB}";
constexpr const wchar_t* kTypeLibrary =
    L"Software\\Classes\\TypeLib\\{FB0C9C6E-63A5-4F1D-9C52-6E3C7E2B5D40}";

std::optional<std::wstring> Text(HKEY scope, const std::wstring& path, const wchar_t* name) {
  std::array<wchar_t, 1024> text{};
  DWORD bytes = sizeof text;
  if (RegGetValueW(scope, path.c_str(), name, RRF_RT_REG_SZ, nullptr, text.data(), &bytes) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  return text.data();
}

bool Exists(HKEY scope, const std::wstring& path) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(scope, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
  RegCloseKey(key);
  return true;
}

// Every place is empty before and after.
class Registration : public Module {
 protected:
  Registration() { EXPECT_EQ(Run("DllUnregisterServer"), S_OK); }
  ~Registration() override {
    EXPECT_EQ(Run("DllUnregisterServer"), S_OK);
    for (const HKEY scope : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
      for (const wchar_t* path : {kPrinterName, kSessionServer, kPrinterInterface, kTypeLibrary}) {
        EXPECT_FALSE(Exists(scope, path)) << FromWide(path);
      }
    }
  }

  static void ExpectIn(HKEY scope) {
    EXPECT_EQ(Text(scope, kPrinterName, nullptr), L"{2389511E-AE07-4A8F-BF68-F2D15542C87E}");
    const auto module = Text(scope, kSessionServer, nullptr);
    ASSERT_TRUE(module.has_value());
    EXPECT_TRUE(module->ends_with(L"\\QbTdPrinter.dll")) << FromWide(*module);
    EXPECT_EQ(Text(scope, kSessionServer, L"ThreadingModel"), L"Apartment");
    const std::wstring path = kPrinterInterface;
    EXPECT_EQ(Text(scope, path + L"\\TypeLib", L"Version"), L"1.0");
    EXPECT_EQ(Text(scope, path + L"\\ProxyStubClsid32", nullptr),
              L"{00020424-0000-0000-C000-000000000046}");
    const wchar_t* kind = sizeof(void*) == 8 ? L"\\1.0\\0\\win64" : L"\\1.0\\0\\win32";
    EXPECT_EQ(Text(scope, std::wstring(kTypeLibrary) + kind, nullptr), module);
  }
};

TEST_F(Registration, IsForTheMachineWhereItMayBe) {
  EXPECT_EQ(Run("DllRegisterServer"), S_OK);
  ExpectIn(HKEY_LOCAL_MACHINE);
  EXPECT_FALSE(Exists(HKEY_CURRENT_USER, kSessionServer));
  CLSID id{};
  EXPECT_EQ(CLSIDFromProgID(L"QbTdPrinter.Session", &id), S_OK);
  EXPECT_TRUE(IsEqualGUID(id, kSessionClass));
  void* session = nullptr;
  ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &session), S_OK);
  static_cast<IDispatch*>(session)->Release();
}

// Stands in for the machine's part of the registry; nobody may write what is written first.
class ProtectedMachine {
 public:
  ProtectedMachine() {
    PSECURITY_DESCRIPTOR refusal = nullptr;
    // Everybody may do all but set values and make keys.
    ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:(D;;0x0006;;;WD)(A;;KA;;;WD)",
                                                         SDDL_REVISION_1, &refusal, nullptr);
    SECURITY_ATTRIBUTES attributes{sizeof attributes, refusal, FALSE};
    HKEY first = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, kPlace, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_,
                    nullptr);
    RegCreateKeyExW(key_, L"Software\\Classes\\QbTdPrinter.Printer", 0, nullptr, 0, KEY_READ,
                    &attributes, &first, nullptr);
    RegCloseKey(first);
    LocalFree(refusal);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, key_);
  }
  ~ProtectedMachine() {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegCloseKey(key_);
    RegDeleteTreeW(HKEY_CURRENT_USER, kPlace);
  }
  ProtectedMachine(const ProtectedMachine&) = delete;
  ProtectedMachine& operator=(const ProtectedMachine&) = delete;

 private:
  static constexpr const wchar_t* kPlace = L"Software\\QbTdPrinterTest";

  HKEY key_ = nullptr;
};

TEST_F(Registration, IsForTheUserWithoutTheRights) {
  {
    const ProtectedMachine machine;
    EXPECT_EQ(Run("DllRegisterServer"), S_OK);
    EXPECT_FALSE(Exists(HKEY_LOCAL_MACHINE, kSessionServer));
    ExpectIn(HKEY_CURRENT_USER);
  }
  EXPECT_EQ(Run("DllUnregisterServer"), S_OK);
  EXPECT_FALSE(Exists(HKEY_CURRENT_USER, kSessionServer));
}

TEST_F(Registration, ForTheMachineTakesThePlaceOfTheUsers) {
  {
    const ProtectedMachine machine;
    EXPECT_EQ(Run("DllRegisterServer"), S_OK);
  }
  EXPECT_EQ(Run("DllRegisterServer"), S_OK);
  ExpectIn(HKEY_LOCAL_MACHINE);
  EXPECT_FALSE(Exists(HKEY_CURRENT_USER, kSessionServer)) << "it would hide that of the machine";
}

// By the type library the system carries a call through the table of a class.
TEST_F(Registration, CarriesCallsThroughTheTableFromAnotherThread) {
  ASSERT_EQ(Run("DllRegisterServer"), S_OK);
  IDispatch* printer = NewPrinter();
  const GUID& interfaceId = reinterpret_cast<const GUID&>(kTdPrinterId);
  IStream* way = nullptr;
  ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(interfaceId, printer, &way), S_OK);
  HRESULT got = E_FAIL;
  HRESULT read = E_FAIL;
  HRESULT written = E_FAIL;
  HRESULT printed = S_OK;
  TdFlag isPrinted = 5;
  std::thread other([&] {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    void* proxy = nullptr;
    got = CoGetInterfaceAndReleaseStream(way, interfaceId, &proxy);
    if (SUCCEEDED(got)) {
      auto* remote = static_cast<TdPrinter*>(proxy);
      read = remote->table->PrintOk(remote, &isPrinted);
      written = remote->table->PrintBlankRows(remote, 0);
      TdDispatch* noData = nullptr;
      VARIANT device = LeftOut();
      BSTR text = SysAllocStringLen(L"sqlite:x\0y", 10);
      printed = remote->table->DoPrint(remote, TD_TRUE_FLAG, reinterpret_cast<TdString>(text), 21,
                                       TD_FALSE_FLAG, TD_FALSE_FLAG, &noData, nullptr,
                                       reinterpret_cast<TdVariant*>(&device));
      SysFreeString(text);
      remote->table->Release(remote);
    }
    CoUninitialize();
  });
  PumpUntilEndOf(other);
  EXPECT_EQ(got, S_OK);
  EXPECT_EQ(read, S_OK);
  EXPECT_EQ(isPrinted, TD_FALSE_FLAG);
  EXPECT_EQ(written, S_OK);
  EXPECT_EQ(printed, TD_NOTHING_TO_PRINT);
  printer->Release();
  EXPECT_TRUE(CanBeUnloaded());
}

}  // namespace
}  // namespace td
