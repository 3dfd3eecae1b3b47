// References, locks, and the end of the module.
#include <filesystem>
#include <fstream>

#include "platform/failure.h"
#include "server_fixture.h"
#include "test_rows.h"

namespace td {
namespace {

int OpenDescriptors() {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    (void)entry;
    ++count;
  }
  return count;
}

bool IsInMemory(const std::string& module) {
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);) {
    if (line.ends_with(module)) return true;
  }
  return false;
}

using Unloading = ServerTest;

TEST_F(Unloading, CountsTheReferencesOfAnObject) {
  auto printer = NewPrinter();
  EXPECT_EQ(printer.Get()->table->AddRef(printer.Get()), 2U);
  const auto direct = InterfaceOf<TdPrinter>(printer.Get(), kTdPrinterId);
  EXPECT_EQ(printer.Get()->table->AddRef(printer.Get()), 4U);
  EXPECT_EQ(printer.Get()->table->Release(printer.Get()), 3U);
  EXPECT_EQ(printer.Get()->table->Release(printer.Get()), 2U);
}

TEST_F(Unloading, AModuleInUseSaysSo) {
  EXPECT_TRUE(module_->CanUnload());
  {
    const auto factory = module_->Factory(kTdPrinterClass);
    EXPECT_FALSE(module_->CanUnload()) << "a class object is an object";
  }
  EXPECT_TRUE(module_->CanUnload());
  auto settings = module_->Create(kTdSettingsClass);
  EXPECT_FALSE(module_->CanUnload());
  settings = {};
  EXPECT_TRUE(module_->CanUnload());
}

TEST_F(Unloading, ALockKeepsTheModuleUntilItIsGivenBack) {
  const auto lock = [this](std::int32_t value) {
    const auto factory = module_->Factory(kTdPrinterClass);
    return factory.Get()->table->LockServer(factory.Get(), value);
  };
  EXPECT_EQ(lock(1), TD_OK);
  EXPECT_EQ(lock(1), TD_OK);
  EXPECT_EQ(lock(0), TD_OK);
  EXPECT_FALSE(module_->CanUnload());
  EXPECT_EQ(lock(0), TD_OK);
  EXPECT_TRUE(module_->CanUnload());
  EXPECT_EQ(lock(0), TD_RESULT_OF_NUMBER(kInvalidCall)) << "there is no lock";
  EXPECT_TRUE(module_->CanUnload());
}

TEST_F(Unloading, ALockKeepsThePlatformBetweenObjects) {
  const auto factory = module_->Factory(kTdPrinterClass);
  factory.Get()->table->LockServer(factory.Get(), 1);
  ExpectOk(Print(NewPrinter().Get(), TestRows::Make(NamedRows({"大米"})).Get()));
  EXPECT_GT(TestRows::Alive(), 0);
  factory.Get()->table->LockServer(factory.Get(), 0);
}

TEST_F(Unloading, RefusesWhatItHasNotGot) {
  void* found = this;
  EXPECT_EQ(module_->getClassObject(&kTdDispatchId, &kTdClassFactoryId, &found),
            TD_CLASS_NOT_AVAILABLE);
  EXPECT_EQ(found, nullptr);
  EXPECT_EQ(module_->getClassObject(&kTdPrinterClass, &kTdDispatchId, &found), TD_NO_INTERFACE);
  EXPECT_EQ(module_->getClassObject(nullptr, &kTdClassFactoryId, &found), TD_BAD_POINTER);
  EXPECT_EQ(module_->getClassObject(&kTdPrinterClass, &kTdClassFactoryId, nullptr), TD_BAD_POINTER);
  EXPECT_TRUE(module_->CanUnload());

  const auto factory = module_->Factory(kTdPrinterClass);
  const auto outer = NewPrinter();
  EXPECT_EQ(factory.Get()->table->CreateInstance(
                factory.Get(), reinterpret_cast<TdObject*>(outer.Get()), &kTdObjectId, &found),
            TD_NO_AGGREGATION);
  EXPECT_EQ(factory.Get()->table->CreateInstance(factory.Get(), nullptr, &kTdSettingsId, &found),
            TD_NO_INTERFACE);
  EXPECT_EQ(found, nullptr);
}

TEST_F(Unloading, AModuleThatHasPrintedNothingLeavesTheMemory) {
  module_.reset();
  const std::string copy = folder_.File("copy.so");
  std::filesystem::copy_file(QBTD_MODULE, copy);
  for (int round = 0; round < 10; ++round) {
    {
      const LoadedModule module(copy);
      const auto printer = module.Create(kTdPrinterClass);
      EXPECT_TRUE(IsInMemory("/copy.so"));
    }
    EXPECT_FALSE(IsInMemory("/copy.so"));
  }
}

// Qt's caches refer to texts of the module, so that its code may not go while Qt is there.
TEST_F(Unloading, AModuleThatHasPrintedStaysInTheMemory) {
  module_.reset();
  const std::string copy = folder_.File("copy.so");
  std::filesystem::copy_file(QBTD_MODULE, copy);
  {
    const LoadedModule module(copy);
    ExpectOk(
        Print(module.Create(kTdPrinterClass).Get(), TestRows::Make(NamedRows({"大米"})).Get()));
    EXPECT_TRUE(module.CanUnload());
  }
  EXPECT_TRUE(IsInMemory("/copy.so"));
}

// After the first print the module stays in the memory; the later rounds load what is there.
TEST_F(Unloading, AHundredPrintsThroughAModuleThatStaysLeakNothing) {
  module_.reset();
  int descriptors = 0;
  for (int round = 0; round < 100; ++round) {
    {
      const LoadedModule module;
      ExpectOk(Print(module.Create(kTdPrinterClass).Get(),
                     TestRows::Make(NamedRows({"大米", "绿豆"})).Get()));
      ASSERT_TRUE(module.CanUnload());
    }
    ASSERT_EQ(TestRows::Alive(), 0);
    if (round == 2) descriptors = OpenDescriptors();
  }
  EXPECT_EQ(OpenDescriptors(), descriptors);
}

TEST_F(Unloading, AnObjectThatIsNeverGivenBackIsNoCrashAtTheEndOfTheProcess) {
  (void)testing::internal::GetCapturedStderr();  // the check captures by itself
  EXPECT_EXIT(
      {
        static TdDispatch* const forgotten = NewPrinter().Give();
        (void)Print(forgotten, TestRows::Make(NamedRows({"大米"})).Get());
        std::exit(0);
      },
      testing::ExitedWithCode(0), "");
  testing::internal::CaptureStderr();
}

}  // namespace
}  // namespace td
