// The printer that a driver serves, among those of the machine and of its servers.
#include <gtest/gtest.h>

#include "test_printer.h"
#include "windows/printing/printers.h"

namespace td {
namespace {

class PrinterOfADriver : public testing::Test {
 protected:
  PrinterOfADriver() { ThePrinter() = {}; }
};

TEST_F(PrinterOfADriver, IsTheFirstOne) {
  ThePrinter().installed = {{L"laser", L"Some Laser"}, {L"pdf", L"PDF 5"}, {L"pdf 2", L"PDF 5"}};
  EXPECT_EQ(PrinterOfDriver("PDF 5"), "pdf");
  EXPECT_EQ(PrinterOfDriver("PDF"), "");
}

TEST_F(PrinterOfADriver, IsFoundByItsNameInAnyCase) {
  ThePrinter().installed = {{L"pdf", L"Print to pdf"}};
  EXPECT_EQ(PrinterOfDriver("Print To PDF"), "pdf");
}

TEST_F(PrinterOfADriver, IsNotAskedOfAServer) {
  ThePrinter().installed = {{L"\\\\server\\pdf", L"PDF 5", true}};
  EXPECT_EQ(PrinterOfDriver("PDF 5"), "");
  ThePrinter().installed.push_back({L"pdf", L"PDF 5"});
  EXPECT_EQ(PrinterOfDriver("PDF 5"), "pdf");
}

}  // namespace
}  // namespace td
