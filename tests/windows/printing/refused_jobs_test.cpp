// What is made of a job that the system doesn't take.
#include <gtest/gtest.h>

#include "platform/failure.h"
#include "test_printer.h"
#include "windows/printing/document_printing.h"

namespace td {
namespace {

class RefusedJob : public testing::Test {
 protected:
  RefusedJob() { ThePrinter() = {}; }

  // What becomes of a page.
  static bool IsPrinted() {
    const PaperExtent a4 = Millimetres(210, 297);
    PrintChoice choice;
    choice.printer = "p";
    std::vector<int> jobs;
    return PrintDocument({Page{a4.width, a4.height, {}}}, choice, jobs, [](const std::string&) {});
  }
};

TEST_F(RefusedJob, IsNoFailureWhereAUserHasCancelledIt) {
  for (const DWORD refusal : {ERROR_CANCELLED, ERROR_PRINT_CANCELLED}) {
    ThePrinter().refusal = refusal;
    EXPECT_FALSE(IsPrinted()) << refusal;
  }
}

TEST_F(RefusedJob, IsAFailureOfADeviceOtherwise) {
  ThePrinter().refusal = ERROR_ACCESS_DENIED;
  EXPECT_THROW((void)IsPrinted(), Failure);
}

}  // namespace
}  // namespace td
