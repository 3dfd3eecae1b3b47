// A program that prints all day: two thousand bills in one process leave it as they found it.
#include <gtest/gtest.h>
#include <malloc.h>
#include <sqlite3.h>

#include <memory>

#include "desktop/desktop_platform.h"
#include "file_tools.h"
#include "page_document/page_document.h"
#include "render/outputs.h"
#include "service/printer.h"

namespace td {
namespace {

namespace fs = std::filesystem;

// One bill of a page with a label, a value, a barcode and two goods pictures.
constexpr const char* kFormat = R"(
  insert into TDBill (FTDBillID, FTranType, FTDBillName, FSelected, FPaperSize, FPaperWidth,
                      FPaperHeight, FRowsPerPage, FRowHeight)
    values (1, 21, '订单', 1, 256, 6000, 4000, 2, 400);
  insert into TDVariant (FTranType, FVarCaption, FVarName) values (21, '品名', 'FItemName');
  insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FTypeID, FIsVariant,
                            FObjectFieldName, FObjectCaption, FFormatString, FFontName, FFontSize,
                            FAlignMent)
    values (1, 1, 500, 100, 2000, 300, 0, 0, '', 'Order', '', 'Arial', 10, 0),
           (1, 1, 3000, 100, 2000, 700, 0, 1, '<单号条码图>', '', '', 'Arial', 10, 0),
           (1, 3, 500, 1000, 2000, 300, 0, 1, '品名', '', '', 'Arial', 10, 0),
           (1, 3, 3000, 1000, 300, 300, 0, 1, '<商品图片>', '', '', 'Arial', 10, 0);
  insert into t_icitem_Picture (FItemID, FPicture) values (5, x'%s'), (6, x'%s');
)";

// A GIF of one pixel.
constexpr const char* kPicture =
    "47494638396101000100800000000000ffffff21f90401000000002c00000000010001000002024401003b";

class ManyPrints : public testing::Test {
 protected:
  ManyPrints() {
    for (const char* name : {"component", "component/picture", "temporary"}) {
      fs::create_directory(folder_ / name);
    }
    setenv("TMPDIR", (folder_ / "temporary").c_str(), 1);
    setenv("XDG_RUNTIME_DIR", folder_.Path().c_str(), 1);
    MakeDatabase();
    DesktopOptions options;
    options.stateDirectory = folder_ / "state";
    options.componentFolder = folder_ / "component";
    options.documentSink = [this](const PageDocument& document) {
      if (printed_++ % 20 == 0) WritePdf(document.Pages(), folder_ / "order.pdf", "order");
    };
    desktop_ = std::make_unique<DesktopPlatform>(std::move(options));
  }
  ~ManyPrints() override { unsetenv("TMPDIR"); }

  void MakeDatabase() {
    sqlite3* database = nullptr;
    sqlite3_open((folder_ / "bills.db").c_str(), &database);
    const std::unique_ptr<char, decltype(&sqlite3_free)> format(
        sqlite3_mprintf(kFormat, kPicture, kPicture), &sqlite3_free);
    const std::string script = ContentOf(QBTD_SOURCE_DIR "/examples/schema.sql") + format.get();
    EXPECT_EQ(sqlite3_exec(database, script.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
  }

  void Print(int times) {
    const std::string connection = "sqlite:" + (folder_ / "bills.db").string();
    for (int i = 0; i < times; ++i) {
      Printer printer(desktop_->Get());
      printer.DoPrint(true, connection, 21, false, false,
                      desktop_->Get().database.OpenQuery(
                          connection,
                          "select 7 as FInterID, 'A-1' as FBillNo, 'rice' as FItemName, "
                          "5 as FItemiD union all select 7, 'A-1', 'beans', 6"),
                      "", nullptr);
    }
  }

  // Bytes that are allocated and not given back. The sanitizers' allocator tells none.
  static std::size_t Memory() {
    const struct mallinfo2 state = mallinfo2();
    return state.uordblks + state.hblkhd;
  }
  static std::ptrdiff_t Descriptors() {
    return std::distance(fs::directory_iterator("/proc/self/fd"), {});
  }
  [[nodiscard]] std::set<std::string> Files() const {
    std::set<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder_.Path())) {
      files.insert(entry.path());
    }
    return files;
  }

  const TestFolder folder_;
  int printed_ = 0;
  std::unique_ptr<DesktopPlatform> desktop_;
};

TEST_F(ManyPrints, LeaveMemoryDescriptorsAndFilesAsTheyWere) {
  Print(100);  // fills what is kept for the next print
  const std::size_t memory = Memory();
  const auto descriptors = Descriptors();
  const std::set<std::string> files = Files();

  Print(2000);
  EXPECT_EQ(printed_, 2100);
  EXPECT_EQ(desktop_->MessagesShown(), 0);
  EXPECT_LT(Memory(), memory + 100'000) << "fifty bytes a print";
  EXPECT_EQ(Descriptors(), descriptors);
  EXPECT_EQ(Files(), files);
  EXPECT_TRUE(files.contains(folder_ / "order.pdf"));
  EXPECT_TRUE(files.contains(folder_ / "state/订单.html"));
  EXPECT_TRUE(files.contains(folder_ / "component/picture/6.jpg"));
}

}  // namespace
}  // namespace td

// Set before anything asks the printing system, which reads this once. Each export is forced to the
// disk; in memory that takes no time.
int main(int argc, char** argv) {
  if (access("/dev/shm", W_OK) == 0) setenv("TEST_TMPDIR", "/dev/shm", 1);
  setenv("CUPS_SERVER", "/nonexistent/cups.sock", 1);
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) unsetenv(name);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
