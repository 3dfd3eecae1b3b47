// Registration by the module's own functions, for the machine and for a user without its rights.
#include <array>
#include <filesystem>
#include <functional>
#include <optional>
#include <random>
#include <thread>
#include <utility>

#include "called_module.h"
#include "interface/binary_interface.h"
#include "message_pump.h"

// Behind the system's other headers.
#include <sddl.h>

namespace td {
namespace {

namespace fs = std::filesystem;

constexpr const wchar_t* kPrinterName = L"Software\\Classes\\QbTdPrinter.Printer\\CLSID";
constexpr const wchar_t* kPrinterClassKey =
    L"Software\\Classes\\CLSID\\{2389511E-AE07-4A8F-BF68-F2D15542C87E}";
constexpr const wchar_t* kSessionServer =
    L"Software\\Classes\\CLSID\\{BEC9E21A-8357-4EC5-B261-5CEC43B82E3B}\\InprocServer32";
constexpr const wchar_t* kPrinterInterface =
    L"Software\\Classes\\Interface\\{136F0717-EE88-4E14-BE20-17F115F0DCAB}";
constexpr const wchar_t* kTypeLibrary =
    L"Software\\Classes\\TypeLib\\{FB0C9C6E-63A5-4F1D-9C52-6E3C7E2B5D40}";
constexpr const wchar_t* kLibraryVersion =
    L"Software\\Classes\\TypeLib\\{FB0C9C6E-63A5-4F1D-9C52-6E3C7E2B5D40}\\1.0";

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

// Stands in for the machine's part of the registry, and refuses what is to stay: it is gone with
// the process.
class PassingMachine {
 public:
  PassingMachine() {
    RegCreateKeyExW(HKEY_CURRENT_USER, kPlace, 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                    nullptr, &key_, nullptr);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, key_);
  }
  ~PassingMachine() {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegCloseKey(key_);
    RegDeleteTreeW(HKEY_CURRENT_USER, kPlace);
  }
  PassingMachine(const PassingMachine&) = delete;
  PassingMachine& operator=(const PassingMachine&) = delete;

 private:
  static constexpr const wchar_t* kPlace = L"Software\\QbTdPrinterTest";

  HKEY key_ = nullptr;
};

TEST_F(Registration, IsForTheUserWhereTheMachinesCantBeWritten) {
  const PassingMachine machine;
  EXPECT_EQ(Run("DllRegisterServer"), S_OK);
  EXPECT_FALSE(Exists(HKEY_LOCAL_MACHINE, kSessionServer));
  ExpectIn(HKEY_CURRENT_USER);
  EXPECT_EQ(Run("DllUnregisterServer"), S_OK);
  EXPECT_FALSE(Exists(HKEY_CURRENT_USER, kSessionServer));
  EXPECT_FALSE(Exists(HKEY_CURRENT_USER, kTypeLibrary));
}

TEST_F(Registration, ForTheMachineTakesThePlaceOfTheUsers) {
  {
    const PassingMachine machine;
    EXPECT_EQ(Run("DllRegisterServer"), S_OK);
  }
  EXPECT_EQ(Run("DllRegisterServer"), S_OK);
  ExpectIn(HKEY_LOCAL_MACHINE);
  EXPECT_FALSE(Exists(HKEY_CURRENT_USER, kSessionServer)) << "it would hide that of the machine";
}

// The component of another program: the same file in another folder.
class OthersModule {
 public:
  OthersModule() {
    std::random_device random;
    do {
      folder_ = fs::temp_directory_path() / (L"程序-" + std::to_wstring(random()));
    } while (!fs::create_directory(folder_));
    fs::copy_file(QBTD_MODULE, folder_ / L"QbTdPrinter.dll");
    module_ = LoadLibraryW((folder_ / L"QbTdPrinter.dll").c_str());
  }
  ~OthersModule() {
    Remove();
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  OthersModule(const OthersModule&) = delete;
  OthersModule& operator=(const OthersModule&) = delete;

  [[nodiscard]] std::wstring File() const { return (folder_ / L"QbTdPrinter.dll").wstring(); }
  [[nodiscard]] HRESULT Run(const char* name) const {
    using WithoutArguments = HRESULT(STDAPICALLTYPE*)();
    return reinterpret_cast<WithoutArguments>(
        reinterpret_cast<void*>(GetProcAddress(module_, name)))();
  }
  void Remove() {
    if (module_ != nullptr) FreeLibrary(std::exchange(module_, nullptr));
    std::error_code ignored;
    fs::remove(File(), ignored);
  }

 private:
  fs::path folder_;
  HMODULE module_ = nullptr;
};

TEST_F(Registration, OfAnotherProgramStaysAsLongAsItsFile) {
  OthersModule others;
  ASSERT_EQ(others.Run("DllRegisterServer"), S_OK);
  ASSERT_EQ(Text(HKEY_LOCAL_MACHINE, kSessionServer, nullptr), others.File());
  EXPECT_EQ(Run("DllUnregisterServer"), S_OK);
  ExpectIn(HKEY_LOCAL_MACHINE);
  others.Remove();
  EXPECT_EQ(Run("DllUnregisterServer"), S_OK);
  EXPECT_FALSE(Exists(HKEY_LOCAL_MACHINE, kSessionServer)) << "nothing can load it any more";
}

TEST_F(Registration, OfTheUserGoesWhileAnotherProgramsForTheMachineStays) {
  const OthersModule others;
  ASSERT_EQ(others.Run("DllRegisterServer"), S_OK);
  {
    const PassingMachine machine;
    ASSERT_EQ(Run("DllRegisterServer"), S_OK);
  }
  ASSERT_TRUE(Exists(HKEY_CURRENT_USER, kSessionServer));
  EXPECT_EQ(Run("DllUnregisterServer"), S_OK);
  EXPECT_FALSE(Exists(HKEY_CURRENT_USER, kSessionServer));
  ExpectIn(HKEY_LOCAL_MACHINE);
  EXPECT_EQ(others.Run("DllUnregisterServer"), S_OK);
  EXPECT_FALSE(Exists(HKEY_LOCAL_MACHINE, kSessionServer));
}

// Keeps a key of the machine from being opened, and so from being removed, as for a user without
// those rights.
class KeptKey {
 public:
  explicit KeptKey(const wchar_t* path) {
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, path, 0, WRITE_DAC, &key_);
    SetRights(L"D:P(D;;KA;;;WD)");
  }
  ~KeptKey() {
    SetRights(L"D:P(A;OICI;KA;;;WD)");
    RegCloseKey(key_);
  }
  KeptKey(const KeptKey&) = delete;
  KeptKey& operator=(const KeptKey&) = delete;

 private:
  void SetRights(const wchar_t* text) {
    PSECURITY_DESCRIPTOR rights = nullptr;
    ConvertStringSecurityDescriptorToSecurityDescriptorW(text, SDDL_REVISION_1, &rights, nullptr);
    RegSetKeySecurity(key_, DACL_SECURITY_INFORMATION, rights);
    LocalFree(rights);
  }

  HKEY key_ = nullptr;
};

TEST_F(Registration, OfTheUserGoesWhereTheMachinesMayNotBeRemoved) {
  ASSERT_EQ(Run("DllRegisterServer"), S_OK);
  {
    const KeptKey kept(kPrinterClassKey);
    EXPECT_EQ(Run("DllUnregisterServer"), E_ACCESSDENIED) << "there is none of the user's";
    {
      const PassingMachine machine;
      ASSERT_EQ(Run("DllRegisterServer"), S_OK);
    }
    ASSERT_TRUE(Exists(HKEY_CURRENT_USER, kSessionServer));
    EXPECT_EQ(Run("DllUnregisterServer"), S_OK);
    EXPECT_FALSE(Exists(HKEY_CURRENT_USER, kSessionServer));
  }
  ExpectIn(HKEY_LOCAL_MACHINE);
}

// A key of somebody else's at a place that the component's type library has.
class OthersTypeLibrary {
 public:
  OthersTypeLibrary() {
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, kLibraryVersion, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                    &key, nullptr);
    RegCloseKey(key);
  }
  ~OthersTypeLibrary() { RegDeleteTreeW(HKEY_LOCAL_MACHINE, kTypeLibrary); }
  OthersTypeLibrary(const OthersTypeLibrary&) = delete;
  OthersTypeLibrary& operator=(const OthersTypeLibrary&) = delete;
};

TEST_F(Registration, ForTheMachineIsNotLeftHalfDone) {
  const OthersTypeLibrary others;
  const KeptKey kept(kLibraryVersion);
  EXPECT_EQ(Run("DllRegisterServer"), S_OK);
  EXPECT_FALSE(Exists(HKEY_LOCAL_MACHINE, kSessionServer));
  EXPECT_FALSE(Exists(HKEY_LOCAL_MACHINE, kPrinterName));
  ExpectIn(HKEY_CURRENT_USER);
}

TEST_F(Registration, ForTheMachineStaysWholeWhereItCantBeRepeated) {
  ASSERT_EQ(Run("DllRegisterServer"), S_OK);
  {
    const KeptKey kept(kLibraryVersion);
    EXPECT_EQ(Run("DllRegisterServer"), S_OK);
    ExpectIn(HKEY_CURRENT_USER);
  }
  ExpectIn(HKEY_LOCAL_MACHINE);
}

// What the component of the other kind, of 32 bits beside 64 or the other way round, has written.
class OtherKind {
 public:
  OtherKind() {
    Put(kSessionServer, kOther, L"C:\\other\\QbTdPrinter.dll");
    Put(std::wstring(kPrinterInterface) + L"\\ProxyStubClsid32", kOther,
        L"{00020424-0000-0000-C000-000000000046}");
    Put(std::wstring(kTypeLibrary) + kOtherLibrary, 0, L"C:\\other\\QbTdPrinter.dll");
  }
  ~OtherKind() {
    for (const wchar_t* path : {kSessionClassKey, kPrinterInterface}) {
      HKEY classes = nullptr;
      RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Classes", 0, KEY_ALL_ACCESS | kOther, &classes);
      RegDeleteTreeW(classes, path + std::wstring(L"Software\\Classes\\").size());
      RegCloseKey(classes);
    }
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, kTypeLibrary);
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\QbTdPrinter.Session");
  }
  OtherKind(const OtherKind&) = delete;
  OtherKind& operator=(const OtherKind&) = delete;

  static void ExpectWhole() {
    EXPECT_TRUE(Has(kSessionServer, kOther));
    EXPECT_TRUE(Has(std::wstring(kPrinterInterface) + L"\\ProxyStubClsid32", kOther));
    EXPECT_TRUE(Has(std::wstring(kTypeLibrary) + kOtherLibrary, 0));
  }

 private:
  static constexpr bool kIs64 = sizeof(void*) == 8;
  static constexpr REGSAM kOther = kIs64 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
  static constexpr const wchar_t* kOtherLibrary = kIs64 ? L"\\1.0\\0\\win32" : L"\\1.0\\0\\win64";
  static constexpr const wchar_t* kSessionClassKey =
      L"Software\\Classes\\CLSID\\{BEC9E21A-8357-4EC5-B261-5CEC43B82E3B}";

  static void Put(const std::wstring& path, REGSAM view, const std::wstring& text) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, KEY_WRITE | view,
                              nullptr, &key, nullptr),
              ERROR_SUCCESS);
    RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
  }
  static bool Has(const std::wstring& path, REGSAM view) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ | view, &key) !=
        ERROR_SUCCESS) {
      return false;
    }
    RegCloseKey(key);
    return true;
  }
};

TEST_F(Registration, LeavesTheComponentOfTheOtherKindAlone) {
  const OtherKind other;
  ASSERT_EQ(Run("DllRegisterServer"), S_OK);
  ExpectIn(HKEY_LOCAL_MACHINE);
  other.ExpectWhole();
  ASSERT_EQ(Run("DllUnregisterServer"), S_OK);
  other.ExpectWhole();
  EXPECT_FALSE(Exists(HKEY_LOCAL_MACHINE, kSessionServer)) << "its own is gone";
  EXPECT_FALSE(Exists(HKEY_LOCAL_MACHINE, kPrinterName));
  EXPECT_TRUE(Exists(HKEY_LOCAL_MACHINE, L"Software\\Classes\\QbTdPrinter.Session\\CLSID"))
      << "the name serves both";
}

// By the type library the system carries calls through the tables of the classes from another
// thread; `calls` get the proxy there.
template <class Object>
void CallFromAnotherThread(IDispatch* object, const TdGuid& interfaceId,
                           const std::function<void(Object* remote)>& calls) {
  const GUID& id = reinterpret_cast<const GUID&>(interfaceId);
  IStream* way = nullptr;
  ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(id, object, &way), S_OK);
  HRESULT got = E_FAIL;
  std::thread other([&] {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    void* proxy = nullptr;
    got = CoGetInterfaceAndReleaseStream(way, id, &proxy);
    if (SUCCEEDED(got)) {
      auto* remote = static_cast<Object*>(proxy);
      calls(remote);
      remote->table->Release(remote);
    }
    CoUninitialize();
  });
  PumpUntilEndOf(other);
  EXPECT_EQ(got, S_OK);
}

TEST_F(Registration, CarriesPropertiesFromAnotherThread) {
  ASSERT_EQ(Run("DllRegisterServer"), S_OK);
  IDispatch* printer = NewPrinter();
  CallFromAnotherThread<TdPrinter>(printer, kTdPrinterId, [](TdPrinter* remote) {
    TdFlag isPrinted = 5;
    EXPECT_EQ(remote->table->PrintOk(remote, &isPrinted), S_OK);
    EXPECT_EQ(isPrinted, TD_FALSE_FLAG);
    EXPECT_EQ(remote->table->PrintBlankRows(remote, 0), S_OK);
  });
  printer->Release();
  EXPECT_TRUE(CanBeUnloaded());
}

TEST_F(Registration, CarriesTextsFromAnotherThread) {
  ASSERT_EQ(Run("DllRegisterServer"), S_OK);
  IDispatch* session = New(kSessionClass);
  CallFromAnotherThread<TdSession>(session, kTdSessionId, [](TdSession* remote) {
    const auto toPrinter = [remote](const wchar_t* text, UINT length) {
      BSTR name = SysAllocStringLen(text, length);
      const HRESULT result = remote->table->ToPrinter(remote, reinterpret_cast<TdString>(name));
      SysFreeString(name);
      return result;
    };
    EXPECT_EQ(toPrinter(L"打印机", 3), S_OK);
    EXPECT_EQ(toPrinter(L"打印机\0二", 5), TD_RESULT_OF_NUMBER(5)) << "the whole text has arrived";
    TdString result = nullptr;
    EXPECT_EQ(remote->table->Result(remote, &result), S_OK);
    SysFreeString(reinterpret_cast<BSTR>(result));
    TdString message = nullptr;
    EXPECT_EQ(remote->table->Message(remote, 1, &message), TD_RESULT_OF_NUMBER(9));
  });
  session->Release();
  EXPECT_TRUE(CanBeUnloaded());
}

TEST_F(Registration, CarriesPrintsFromAnotherThread) {
  ASSERT_EQ(Run("DllRegisterServer"), S_OK);
  IDispatch* printer = NewPrinter();
  CallFromAnotherThread<TdPrinter>(printer, kTdPrinterId, [](TdPrinter* remote) {
    TdDispatch* noData = nullptr;
    VARIANT device = LeftOut();
    BSTR text = SysAllocString(L"sqlite:x");
    EXPECT_EQ(remote->table->DoPrint(remote, TD_TRUE_FLAG, reinterpret_cast<TdString>(text), 21,
                                     TD_FALSE_FLAG, TD_FALSE_FLAG, &noData, nullptr,
                                     reinterpret_cast<TdVariant*>(&device)),
              TD_NOTHING_TO_PRINT);
    SysFreeString(text);
  });
  printer->Release();
  EXPECT_TRUE(CanBeUnloaded());
}

}  // namespace
}  // namespace td
