// The component belongs to one thread at a time.
#include <thread>

#include "objects/variant_values.h"
#include "server_fixture.h"
#include "test_rows.h"

namespace td {
namespace {

constexpr const char* kWrongThread = "打印组件正被另一个线程使用，只能由首先使用它的线程调用。";

class Threads : public ServerTest {
 protected:
  template <class Action>
  static void OnAnotherThread(Action action) {
    std::thread(action).join();
  }
};

TEST_F(Threads, ACallByNameFromAnotherThreadIsAClearError) {
  const auto printer = NewPrinter();
  const auto rows = TestRows::Make(NamedRows({"大米"}));
  OnAnotherThread([&] {
    ExpectRaised(Print(printer.Get(), rows.Get()), TD_WRONG_THREAD, kWrongThread);
    OwnedVariant value;
    ExpectRaised(Get(printer.Get(), "PrintOk", value), TD_WRONG_THREAD, kWrongThread);
  });
  EXPECT_EQ(Exported(), "");
  ExpectOk(Print(printer.Get(), rows.Get()));
}

TEST_F(Threads, ADirectCallFromAnotherThreadIsAResultCodeWithADescription) {
  const auto printer = InterfaceOf<TdPrinter>(NewPrinter().Get(), kTdPrinterId);
  OnAnotherThread([&] {
    TdFlag printOk = TD_FALSE_FLAG;
    EXPECT_EQ(printer.Get()->table->PrintOk(printer.Get(), &printOk), TD_WRONG_THREAD);
    EXPECT_EQ(printer.Get()->table->PrintBlankRows(printer.Get(), 5), TD_WRONG_THREAD);
    const auto source = InterfaceOf<TdErrorSource>(printer.Get(), kTdErrorSourceId);
    TdExceptionInfo info{};
    EXPECT_EQ(source.Get()->table->LastError(source.Get(), &info), TD_OK);
    EXPECT_EQ(TextOf(info.description), kWrongThread);
    TdClearException(&info);
  });
}

TEST_F(Threads, AnotherThreadGetsNoClassObjectAndNoObject) {
  const auto factory = module_->Factory(kTdPrinterClass);
  OnAnotherThread([&] {
    void* found = this;
    EXPECT_EQ(module_->getClassObject(&kTdPrinterClass, &kTdClassFactoryId, &found),
              TD_WRONG_THREAD);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(factory.Get()->table->CreateInstance(factory.Get(), nullptr, &kTdDispatchId, &found),
              TD_WRONG_THREAD);
    EXPECT_EQ(factory.Get()->table->LockServer(factory.Get(), 1), TD_WRONG_THREAD);
  });
}

TEST_F(Threads, ReferencesMayBeCountedOnAnyThread) {
  auto printer = NewPrinter();
  OnAnotherThread([&] {
    for (int i = 0; i < 1000; ++i) printer.Get()->table->AddRef(printer.Get());
    for (int i = 0; i < 1000; ++i) printer.Get()->table->Release(printer.Get());
  });
  ExpectOk(Print(printer.Get(), TestRows::Make(NamedRows({"大米"})).Get()));
}

TEST_F(Threads, ALastReferenceThatAnotherThreadGivesBackEndsOnTheOwnersThread) {
  auto printer = NewPrinter();
  ExpectOk(Print(printer.Get(), TestRows::Make(NamedRows({"大米"})).Get()));
  OnAnotherThread([&] {
    printer = {};
    EXPECT_FALSE(module_->CanUnload()) << "the platform is another thread's";
    EXPECT_GT(TestRows::Alive(), 0);
    void* found = nullptr;
    EXPECT_EQ(module_->getClassObject(&kTdPrinterClass, &kTdClassFactoryId, &found),
              TD_WRONG_THREAD);
  });
  EXPECT_TRUE(module_->CanUnload());
  EXPECT_EQ(TestRows::Alive(), 0);
}

TEST_F(Threads, AComponentThatNobodyUsesMayGoToAnotherThread) {
  { const auto printer = NewPrinter(); }
  OnAnotherThread([&] {
    const auto printer = NewPrinter();
    (void)PrintOk(printer.Get());
  });
  const auto printer = NewPrinter();
  (void)PrintOk(printer.Get());
}

TEST_F(Threads, ThreadsThatAskAtOnceGetOneOwner) {
  std::vector<std::thread> threads;
  std::atomic<int> refused = 0;
  std::atomic<int> served = 0;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < 200; ++round) {
        void* found = nullptr;
        const TdResult result =
            module_->getClassObject(&kTdPrinterClass, &kTdClassFactoryId, &found);
        ++(result == TD_WRONG_THREAD ? refused : served);
        const auto factory = Reference<TdClassFactory>::Taking(static_cast<TdClassFactory*>(found));
        EXPECT_EQ(factory.Get() != nullptr, result == TD_OK);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(refused + served, 800);
  EXPECT_GT(served, 0);
}

}  // namespace
}  // namespace td
