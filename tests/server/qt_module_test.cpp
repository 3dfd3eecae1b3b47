// What the module on Qt does in a way of its own.
#include <thread>

#include "server_fixture.h"
#include "test_rows.h"

namespace td {
namespace {

using ModuleOfQt = ServerTest;

TEST_F(ModuleOfQt, TheThreadOfTheQtApplicationIsTheOneThatPrints) {
  ExpectOk(Print(NewPrinter().Get(), TestRows::Make(NamedRows({"大米"})).Get()));
  std::thread([&] {
    const auto printer = NewPrinter();
    const Outcome outcome = Print(printer.Get(), TestRows::Make(NamedRows({"大米"})).Get());
    EXPECT_EQ(outcome.result, TD_EXCEPTION);
    EXPECT_NE(outcome.description.find("线程"), std::string::npos) << outcome.description;
  }).join();
}

TEST_F(ModuleOfQt, HasNoTypeInformation) {
  const auto printer = NewPrinter();
  std::uint32_t count = 5;
  EXPECT_EQ(printer.Get()->table->GetTypeInfoCount(printer.Get(), &count), TD_OK);
  EXPECT_EQ(count, 0U);
  void* info = this;
  EXPECT_EQ(printer.Get()->table->GetTypeInfo(printer.Get(), 0, 0, &info), TD_NOT_IMPLEMENTED);
  EXPECT_EQ(info, nullptr);
}

}  // namespace
}  // namespace td
