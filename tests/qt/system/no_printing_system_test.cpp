// Print calls on a machine without the library of the printing system.
#include <dlfcn.h>

#include <string_view>

#include "optioned_print.h"
#include "platform/failure.h"
#include "qt/system/print_job.h"
#include "qt/system/printers.h"

// The linker sends the component's calls of dlopen here; see CMakeLists.txt.
extern "C" void* RealOpen(const char* file, int mode) asm("__real_dlopen");
extern "C" void* OpenAllButCups(const char* file, int mode) asm("__wrap_dlopen");

void* OpenAllButCups(const char* file, int mode) {
  const bool isCups = std::string_view(file).starts_with("libcups");
  return RealOpen(isCups ? "/nonexistent/libcups.so.2" : file, mode);
}

namespace td {
namespace {

constexpr const char* kSays = "这台机器没有打印系统，未打印：/nonexistent/libcups.so.2";

TEST(NoPrintingSystem, HasNoPrinters) {
  EXPECT_TRUE(PrinterNames().empty());
  EXPECT_EQ(DefaultPrinter(), "");
  EXPECT_FALSE(HasPrinter("QbTd-PDF"));
  EXPECT_FALSE(OwnSheet("QbTd-PDF"));
  EXPECT_FALSE(MarginsOf("QbTd-PDF", {11906, 16838}));
  EXPECT_FALSE(SheetName("QbTd-PDF", {11906, 16838}));
}

TEST(NoPrintingSystem, RefusesAJobInTheSameWordsEachTime) {
  for (int time = 0; time < 2; ++time) {
    try {
      SubmitPrintJob({.printer = "QbTd-PDF", .title = "", .pdf = {}, .sheet = {}, .options = {}});
      ADD_FAILURE();
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Number(), kDeviceIo);
      EXPECT_TRUE(failure.Description().starts_with(kSays)) << failure.Description();
    }
  }
}

class PrintWithoutASystem : public OptionedPrint {};

TEST_F(PrintWithoutASystem, GoesIntoAFile) {
  other_.Run("update TDBill set FPaperSize=0");  // the surface's own sheet
  Start();
  Print(Rows(1));
  EXPECT_EQ(documents_, 1);
  EXPECT_TRUE(desktop_->LastDocument().texts.empty());
}

TEST_F(PrintWithoutASystem, ToAPrinterSaysSo) {
  options_.documentSink = nullptr;
  Start();
  Print(Rows(1));
  EXPECT_TRUE(Message().starts_with(kSays)) << Message();
  EXPECT_FALSE(desktop_->LastDocument().IsDelivered());
}

}  // namespace
}  // namespace td
