// A document that goes through the module to a real queue of the printing system.
#include "print_queue.h"

#include <stdlib.h>

#include <array>
#include <cstdio>
#include <memory>

#include "server_fixture.h"
#include "test_rows.h"

namespace td {
namespace {

constexpr const char* kProgram = "server_print_queue_test";  // gives the jobs their title

struct ClosePipe {
  void operator()(FILE* pipe) const { pclose(pipe); }
};

// What a command writes on its standard output.
std::string OutputOf(const std::string& command) {
  const std::unique_ptr<FILE, ClosePipe> pipe(popen(command.c_str(), "r"));
  std::array<char, 4096> text{};
  const std::size_t size = fread(text.data(), 1, text.size(), pipe.get());
  return {text.data(), size};
}

class ToAQueue : public ServerTest {
 protected:
  ToAQueue() {
    OtherUser(folder_.File("bills.db"))
        .Run("update TDBill set FPrintDevice='QbTd-PDF' where FTDBillName='销售单'");
  }
};

TEST_F(ToAQueue, TheSheetsOfTheDocumentComeOut) {
  const auto printer = NewPrinter();
  const std::size_t before = JobsTitled(kProgram).size();
  const std::vector<std::string> twoPages(12, "大米");
  ExpectOk(Print(printer.Get(), TestRows::Make(NamedRows(twoPages)).Get()));
  EXPECT_TRUE(PrintOk(printer.Get()));
  EXPECT_EQ(Messages(), "");
  const std::vector<int> jobs = JobsTitled(kProgram);
  ASSERT_EQ(jobs.size(), before + 1);
  const std::string result = ResultOf(jobs.back());
  EXPECT_NE(OutputOf("pdfinfo '" + result + "'").find("Pages:           2"), std::string::npos);
  EXPECT_GT(OutputOf("pdftotext '" + result + "' -").size(), 12U) << "something stands on them";
}

}  // namespace
}  // namespace td

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) unsetenv(name);
  testing::AddGlobalTestEnvironment(new td::PrintQueues);
  return RUN_ALL_TESTS();
}
