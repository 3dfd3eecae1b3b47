// PDF files by a printer of the test's own, which the system's would be.
#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <set>
#include <sstream>

#include "files/output_file.h"
#include "files/path_text.h"
#include "files/windows_file.h"
#include "page_outputs/document_files.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "windows/api/wide_text.h"
#include "windows/printing/document_printing.h"
#include "windows/printing/printers.h"

namespace td {
namespace {

namespace fs = std::filesystem;

enum class End { kWhole, kHalf, kNothing, kCancelled, kFailed, kNeverDone };

struct PdfPrinter {
  std::string name = "PDF";
  End end = End::kWhole;
  int jobs = 0;
  std::wstring file;  // of the last one
};

PdfPrinter& ThePdfPrinter() {
  static PdfPrinter printer;
  return printer;
}

constexpr const char* kDocument = "%PDF-1.7\nnew\n%%EOF\r\n";

void Put(const fs::path& path, const std::string& content) {
  std::ofstream(OpenPathOf(TextOf(path)), std::ios::binary) << content;
}

std::string ContentOf(const fs::path& path) {
  std::stringstream content;
  content << std::ifstream(OpenPathOf(TextOf(path)), std::ios::binary).rdbuf();
  return content.str();
}

}  // namespace

std::string PrinterOfDriver(const std::string& /*driver*/) {
  return ThePdfPrinter().name;
}

bool PrintDocument(const std::vector<Page>& /*pages*/, const PrintChoice& choice,
                   std::vector<int>& jobs, const Complain& /*complain*/) {
  PdfPrinter& printer = ThePdfPrinter();
  printer.file = ToWide(choice.file);
  EXPECT_LT(printer.file.size(), std::size_t{MAX_PATH});
  EXPECT_EQ(GetFileAttributesW(printer.file.c_str()), INVALID_FILE_ATTRIBUTES);
  if (printer.end == End::kCancelled) return false;
  if (printer.end == End::kFailed) throw Failure(kDeviceIo, "the queue is gone");
  jobs.push_back(++printer.jobs);
  if (printer.end == End::kNothing) return true;
  Put(printer.file, printer.end == End::kHalf ? "%PDF-1.7\nne" : kDocument);
  return true;
}

bool WaitForJobs(const std::string& /*printer*/, const std::vector<int>& /*jobs*/) {
  return ThePdfPrinter().end != End::kNeverDone;
}

namespace {

class PdfFile : public testing::Test {
 protected:
  PdfFile() {
    ThePdfPrinter() = {};
    std::random_device random;
    do {
      folder_ = fs::temp_directory_path() / PathOf("单据-" + std::to_string(random()));
    } while (!fs::create_directory(folder_));
  }
  ~PdfFile() override {
    EXPECT_EQ(GetFileAttributesW(ThePdfPrinter().file.c_str()), INVALID_FILE_ATTRIBUTES)
        << "what the printer has written is left";
    std::error_code ignored;
    fs::remove_all(SystemPath(folder_), ignored);
  }

  static void Write(const fs::path& path) { WritePdf({Page{100, 100, {}}}, TextOf(path), "bill"); }

  // Why it couldn't be written.
  static std::string ReasonFor(const fs::path& path) {
    try {
      Write(path);
      ADD_FAILURE() << "it was written";
      return {};
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Number(), kDeviceIo);
      return failure.Description();
    }
  }

  [[nodiscard]] std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_)) {
      names.insert(TextOf(entry.path().filename()));
    }
    return names;
  }

  fs::path folder_;
};

TEST_F(PdfFile, IsWhatThePrinterHasMade) {
  Write(folder_ / PathOf("订单.pdf"));
  EXPECT_EQ(ContentOf(folder_ / PathOf("订单.pdf")), kDocument);
  EXPECT_EQ(Names(), std::set<std::string>{"订单.pdf"});
}

TEST_F(PdfFile, TakesThePlaceOfTheOldOne) {
  Put(folder_ / "bill.pdf", "old");
  Write(folder_ / "bill.pdf");
  EXPECT_EQ(ContentOf(folder_ / "bill.pdf"), kDocument);
}

TEST_F(PdfFile, LeavesTheOldOneWhereThePrinterMakesNoWholeOne) {
  Put(folder_ / "bill.pdf", "old");
  const std::pair<End, const char*> ends[] = {{End::kHalf, "打印系统没有写入文件"},
                                              {End::kNothing, "打印系统没有写入文件"},
                                              {End::kNeverDone, "打印系统没有写入文件"},
                                              {End::kCancelled, "打印被取消"},
                                              {End::kFailed, "the queue is gone"}};
  for (const auto& [end, reason] : ends) {
    ThePdfPrinter().end = end;
    EXPECT_NE(ReasonFor(folder_ / "bill.pdf").find(reason), std::string::npos) << reason;
    EXPECT_EQ(ContentOf(folder_ / "bill.pdf"), "old") << reason;
    EXPECT_EQ(Names(), std::set<std::string>{"bill.pdf"}) << reason;
  }
}

TEST_F(PdfFile, IsRefusedBeforeAnythingIsPrinted) {
  EXPECT_NE(ReasonFor(folder_).find("这是一个文件夹"), std::string::npos);
  EXPECT_NE(ReasonFor(folder_ / "none" / "bill.pdf").find("不存在"), std::string::npos);
  Put(folder_ / "bill.pdf", "old");
  SetFileAttributesW((folder_ / "bill.pdf").c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_NE(ReasonFor(folder_ / "bill.pdf").find("没有权限"), std::string::npos);
  SetFileAttributesW((folder_ / "bill.pdf").c_str(), FILE_ATTRIBUTE_NORMAL);
  ThePdfPrinter().name.clear();
  EXPECT_NE(ReasonFor(folder_ / "bill.pdf").find("Microsoft Print to PDF"), std::string::npos);
  EXPECT_EQ(ThePdfPrinter().jobs, 0);
}

// The printing system takes no path that is longer than the old limit.
TEST_F(PdfFile, MayLieFarDown) {
  fs::path deep = folder_;
  for (int i = 0; i < 8; ++i) {
    deep /= std::wstring(60, L'd');
    ASSERT_TRUE(CreateDirectoryW(SystemPath(deep).c_str(), nullptr)) << i;
  }
  Write(deep / "bill.pdf");
  EXPECT_EQ(ContentOf(deep / "bill.pdf"), kDocument);
}

}  // namespace
}  // namespace td
