// The helper library: strings, variants, calls.
#include "client/client.h"

#include <array>
#include <cstring>
#include <memory>
#include <string>

#include "objects/owned.h"
#include "server_fixture.h"

namespace td {
namespace {

std::string TextOfString(TdString string) {
  const std::unique_ptr<char, decltype(&free)> text(TdTextOfString(string), &free);
  return text.get();
}

TEST(Strings, HaveTheirLengthInFrontAndAZeroBehind) {
  const OwnedString string(TdMakeString("a甲"));
  std::uint32_t bytes = 0;
  std::memcpy(&bytes, reinterpret_cast<const char*>(string.Get()) - 4, 4);
  EXPECT_EQ(bytes, 4U);
  EXPECT_EQ(TdStringLength(string.Get()), 2U);
  EXPECT_EQ(string.Get()[0], u'a');
  EXPECT_EQ(string.Get()[1], u'甲');
  EXPECT_EQ(string.Get()[2], 0);
}

TEST(Strings, TakeTextThereAndBack) {
  for (const std::string text : {"", "plain", "套打单据", "😀 beyond sixteen bits"}) {
    const OwnedString string(TdMakeString(text.c_str()));
    EXPECT_EQ(TextOfString(string.Get()), text);
  }
}

TEST(Strings, NullIsTheEmptyString) {
  EXPECT_EQ(TdStringLength(nullptr), 0U);
  EXPECT_EQ(TextOfString(nullptr), "");
  TdFreeString(nullptr);
  const OwnedString fromNull(TdMakeString(nullptr));
  EXPECT_EQ(TdStringLength(fromNull.Get()), 0U);
}

TEST(Strings, ReplaceWhatIsNoText) {
  const OwnedString fromBytes(TdMakeString("\xff"));
  EXPECT_EQ(TextOfString(fromBytes.Get()), "\uFFFD");
  const std::array<TdUnit, 2> halves = {0xDC00, 0xD800};
  const OwnedString fromUnits(TdMakeStringOfUnits(halves.data(), 2));
  EXPECT_EQ(TextOfString(fromUnits.Get()), "\uFFFD\uFFFD");
}

TEST(Strings, ThatAreTooLongForTheirPrefixAreRefused) {
  const TdUnit unit = u'x';
  EXPECT_EQ(TdMakeStringOfUnits(&unit, 0xFFFFFFFF), nullptr);
}

TEST(Variants, AreClearedToEmpty) {
  std::array<TdVariant, 5> variants = {TdTextVariant("文字"), TdBytesVariant("\1\2", 2),
                                       TdIntegerVariant(5), TdNullVariant(), TdDateVariant(2.5)};
  for (TdVariant& variant : variants) {
    TdClearVariant(&variant);
    EXPECT_EQ(variant.type, TD_EMPTY);
  }
  TdClearVariant(nullptr);
}

TEST(Variants, HoldAReferenceOfTheirObject) {
  TdDispatch* made = nullptr;
  const LoadedModule module;
  ASSERT_EQ(TdCreateObjectFromModule(QBTD_MODULE, &kTdPrinterClass, &made, nullptr), TD_OK);
  TdVariant variant = TdDispatchVariant(made);
  EXPECT_EQ(made->table->Release(made), 1U);
  EXPECT_FALSE(module.CanUnload());
  TdClearVariant(&variant);
  EXPECT_TRUE(module.CanUnload());
  TdUnloadUnusedModules();
}

TEST(Calls, RefuseNullPointers) {
  EXPECT_EQ(TdCall(nullptr, "DoPrint", nullptr, 0, nullptr, nullptr), TD_BAD_POINTER);
  EXPECT_EQ(TdGet(nullptr, "PrintOk", nullptr, nullptr), TD_BAD_POINTER);
  EXPECT_EQ(TdPut(nullptr, "PrintBlankRows", TdTextVariant("3"), nullptr), TD_BAD_POINTER);
  EXPECT_EQ(TdCreateObject(nullptr, nullptr, nullptr), TD_BAD_POINTER);
  EXPECT_EQ(TdCreateObject("x", nullptr, nullptr), TD_BAD_POINTER);
}

TEST(Objects, FromAFileThatIsNoModuleFailInWords) {
  TdDispatch* made = nullptr;
  TdExceptionInfo info{};
  EXPECT_EQ(TdCreateObjectFromModule("/nonexistent.so", &kTdPrinterClass, &made, &info),
            TD_FAILURE);
  EXPECT_EQ(made, nullptr);
  EXPECT_GT(TdStringLength(info.description), 0U);
  TdClearException(&info);
  EXPECT_EQ(info.description, nullptr);
  EXPECT_EQ(TdCreateObjectFromModule(QBTD_MODULE, &kTdObjectId, &made, nullptr),
            TD_CLASS_NOT_AVAILABLE);
  TdUnloadUnusedModules();
}

}  // namespace
}  // namespace td
