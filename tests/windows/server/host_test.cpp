// What hosts that bind early are told: of the members, and of errors.
#include <cstddef>
#include <cstring>

#include "called_module.h"
#include "interface/binary_interface.h"

namespace td {
namespace {

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

// Gives the words that the system has for the thread's last failed call, and takes them away.
std::string WordsOfTheSystem() {
  IErrorInfo* info = nullptr;
  if (GetErrorInfo(0, &info) != S_OK) return {};
  BSTR text = nullptr;
  EXPECT_EQ(info->GetDescription(&text), S_OK);
  const std::string words = FromWide({text, SysStringLen(text)});
  SysFreeString(text);
  info->Release();
  return words;
}

TdPrinter* DirectPrinter(IDispatch* printer) {
  void* direct = nullptr;
  EXPECT_EQ(printer->QueryInterface(reinterpret_cast<const GUID&>(kTdPrinterId), &direct), S_OK);
  return static_cast<TdPrinter*>(direct);
}

TdResult PrintNothing(TdPrinter* printer) {
  TdDispatch* noData = nullptr;
  return printer->table->DoPrint(printer, TD_TRUE_FLAG, nullptr, 21, TD_FALSE_FLAG, TD_FALSE_FLAG,
                                 &noData, nullptr, nullptr);
}

// As languages that bind early do: ask whether the object tells of its errors, then for the words.
TEST_F(Module, AFailedDirectCallLeavesItsWordsWithTheSystem) {
  IDispatch* object = NewPrinter();
  TdPrinter* printer = DirectPrinter(object);
  ISupportErrorInfo* asked = nullptr;
  ASSERT_EQ(object->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(&asked)), S_OK);
  EXPECT_EQ(asked->InterfaceSupportsErrorInfo(reinterpret_cast<const GUID&>(kTdPrinterId)), S_OK);
  EXPECT_EQ(asked->InterfaceSupportsErrorInfo(IID_IDispatch), S_FALSE);
  EXPECT_EQ(asked->InterfaceSupportsErrorInfo(kNoId), S_FALSE);
  asked->Release();
  (void)WordsOfTheSystem();
  EXPECT_EQ(PrintNothing(printer), TD_NOTHING_TO_PRINT);
  EXPECT_EQ(WordsOfTheSystem(), "没有可供打印的数据!");
  EXPECT_EQ(WordsOfTheSystem(), "") << "they are told once";
  EXPECT_EQ(PrintNothing(printer), TD_NOTHING_TO_PRINT);
  IClassFactory* factory = nullptr;
  ASSERT_EQ(Get(kPrinterClass, &factory), S_OK);
  void* other = nullptr;
  EXPECT_EQ(factory->CreateInstance(nullptr, kSessionClass, &other), E_NOINTERFACE);
  EXPECT_EQ(WordsOfTheSystem(), "") << "a failure without words has none of an earlier one";
  factory->Release();
  printer->table->Release(printer);
  object->Release();
  EXPECT_TRUE(CanBeUnloaded());
}

TEST_F(Module, ACallByNameLeavesItsWordsInItsOwnRecord) {
  IDispatch* object = NewPrinter();
  (void)WordsOfTheSystem();
  EXPECT_EQ(Call(object, L"DoPrint", DISPATCH_METHOD,
                 {OfFlag(true), OfText(L"sqlite:x"), OfNumber(21), OfFlag(false), OfFlag(false),
                  OfObject(nullptr)})
                .result,
            DISP_E_EXCEPTION);
  EXPECT_EQ(WordsOfTheSystem(), "");
  object->Release();
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
