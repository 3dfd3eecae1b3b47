// A document that goes through the module to a real queue of the printing system.
#include "print_queue.h"

#include <stdlib.h>

#include "command_output.h"
#include "server_fixture.h"
#include "test_rows.h"

namespace td {
namespace {

constexpr const char* kProgram = "server_print_queue_test";  // gives the jobs their title

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
