// Hosts that end in their own way, and descriptions for hosts that bind early.
#include <array>
#include <cstddef>
#include <cstring>

#include "called_module.h"
#include "interface/binary_interface.h"

namespace td {
namespace {

// The exit code of a program that is given the module and a class.
DWORD ExitCodeOf(const GUID& classId) {
  std::array<wchar_t, 40> id{};
  StringFromGUID2(classId, id.data(), static_cast<int>(id.size()));
  std::wstring line = L"\"" QBTD_LEAVING_HOST L"\" \"" QBTD_MODULE L"\" " + std::wstring(id.data());
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                     &process) == FALSE) {
    return 99;
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD code = 98;
  GetExitCodeProcess(process.hProcess, &code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return code;
}

TEST(Host, MayEndWithoutGivingItsObjectsBack) {
  EXPECT_EQ(ExitCodeOf(kPrinterClass), 0U);
  EXPECT_EQ(ExitCodeOf(kSessionClass), 0U);
}

TEST_F(Module, EachClassHasAFactoryAndNoOtherHas) {
  for (const GUID& id : {kPrinterClass, kSessionClass, kSettingsClass}) {
    IDispatch* object = New(id);
    ASSERT_NE(object, nullptr);
    EXPECT_FALSE(CanBeUnloaded());
    object->Release();
    EXPECT_TRUE(CanBeUnloaded());
  }
  IClassFactory* factory = nullptr;
  EXPECT_EQ(Get(kNoId, &factory), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(factory, nullptr);
}

struct Described {
  GUID classId;
  TdGuid interfaceId;
  std::size_t tableSize;
};

// What the type library says of each member is what calls by name say, and its place in the table.
TEST_F(Module, TheTypeLibraryTellsTheMembersOfTheClasses) {
  for (const Described& one : {Described{kPrinterClass, kTdPrinterId, sizeof(TdPrinterTable)},
                               Described{kSessionClass, kTdSessionId, sizeof(TdSessionTable)},
                               Described{kSettingsClass, kTdSettingsId, sizeof(TdSettingsTable)}}) {
    IDispatch* object = New(one.classId);
    UINT count = 0;
    EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1U);
    ITypeInfo* byName = nullptr;
    ASSERT_EQ(object->GetTypeInfo(0, 0, &byName), S_OK);
    EXPECT_EQ(object->GetTypeInfo(1, 0, &byName), DISP_E_BADINDEX);
    ASSERT_EQ(object->GetTypeInfo(0, 0, &byName), S_OK);
    // The members with their places in the table stand in the other half of a dual interface.
    HREFTYPE other = 0;
    ITypeInfo* inTable = nullptr;
    ASSERT_EQ(byName->GetRefTypeOfImplType(static_cast<UINT>(-1), &other), S_OK);
    ASSERT_EQ(byName->GetRefTypeInfo(other, &inTable), S_OK);
    TYPEATTR* all = nullptr;
    ASSERT_EQ(inTable->GetTypeAttr(&all), S_OK);
    EXPECT_EQ(std::memcmp(&all->guid, &one.interfaceId, sizeof all->guid), 0);
    EXPECT_EQ(all->cbSizeVft, one.tableSize);
    constexpr std::size_t kOfDispatch = sizeof(TdDispatchTable) / sizeof(void*);
    for (UINT i = 0; i < all->cFuncs; ++i) {
      FUNCDESC* function = nullptr;
      ASSERT_EQ(inTable->GetFuncDesc(i, &function), S_OK);
      BSTR name = nullptr;
      UINT names = 0;
      ASSERT_EQ(inTable->GetNames(function->memid, &name, 1, &names), S_OK);
      DISPID id = DISPID_UNKNOWN;
      EXPECT_EQ(object->GetIDsOfNames(kNoId, &name, 1, 0, &id), S_OK) << FromWide(name);
      EXPECT_EQ(id, function->memid) << FromWide(name);
      EXPECT_EQ(static_cast<std::size_t>(function->oVft), (kOfDispatch + i) * sizeof(void*));
      SysFreeString(name);
      inTable->ReleaseFuncDesc(function);
    }
    inTable->ReleaseTypeAttr(all);
    inTable->Release();
    byName->Release();
    object->Release();
  }
}

}  // namespace
}  // namespace td
