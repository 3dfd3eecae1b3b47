// Where tdprint writes to: files, standard output, pipes, devices, full disks, temporary folders.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <ctime>
#include <filesystem>
#include <set>
#include <string>

#include "document_bounds.h"
#include "files/descriptor.h"
#include "memory_rows/memory_recordset.h"
#include "platform/failure.h"
#include "program_run.h"
#include "sample_files.h"
#include "scratch_folder.h"

namespace td {
namespace {

namespace fs = std::filesystem;

class OutputPlaces : public testing::Test {
 protected:
  OutputPlaces() {
    MakeSampleDatabase(QBTD_SOURCE_DIR "/examples", folder_ / "sample.db");
    fs::create_directory(folder_ / "temporary");
    setenv("TMPDIR", (folder_ / "temporary").c_str(), 1);
    setenv("XDG_RUNTIME_DIR", folder_.Path().c_str(), 1);  // else a folder in the former
  }
  ~OutputPlaces() override {
    unsetenv("TMPDIR");
    unsetenv("XDG_RUNTIME_DIR");
  }

  // Runs a script of the shell, in which "$@" is tdprint with a bill to print, and $scratch the
  // folder of the test.
  [[nodiscard]] ProgramResult Shell(const std::string& script,
                                    const std::string& data = kOrder) const {
    const std::string database = "sqlite:" + (folder_ / "sample.db").string();
    return ProgramRun(
               {"bash", "-c", "export scratch=" + folder_.Path().string() + "; " + script, "bash",
                TDPRINT_PROGRAM, "print", "--db", database, "--type", "21", "--data", data},
               folder_.Path())
        .Finish();
  }
  [[nodiscard]] std::string TextsOf(const std::string& pdf) const {
    return ProgramRun({"pdftotext", (folder_ / pdf).string(), "-"}, folder_.Path()).Finish().out;
  }
  [[nodiscard]] std::set<std::string> NamesIn(const std::string& name) const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_ / name)) {
      names.insert(entry.path().filename());
    }
    return names;
  }

  static constexpr const char* kOrder = "select * from v_sales_order where FInterID=21002";
  static constexpr const char* kBillNumber = "XD-2403-0002";

  const ScratchFolder folder_;
};

TEST_F(OutputPlaces, StandardOutputReceivesTheDocumentAndNothingElse) {
  const ProgramResult pdf = Shell("exec \"$@\" --pdf -");
  EXPECT_EQ(pdf.status, 0) << pdf.err;
  EXPECT_EQ(pdf.err, "");
  EXPECT_TRUE(pdf.out.starts_with("%PDF-")) << pdf.out.substr(0, 100);
  EXPECT_TRUE(pdf.out.ends_with("%%EOF\n"));
  folder_.Write("received.pdf", pdf.out);
  EXPECT_NE(TextsOf("received.pdf").find(kBillNumber), std::string::npos);

  const ProgramResult html = Shell("exec \"$@\" --html -");
  EXPECT_EQ(html.status, 0) << html.err;
  EXPECT_TRUE(html.out.starts_with("<!DOCTYPE html>"));
  EXPECT_TRUE(html.out.ends_with("</html>\n"));
  EXPECT_EQ(Shell("exec \"$@\" --html /dev/stdout").out, html.out);
}

TEST_F(OutputPlaces, StandardOutputThatIsClosedIsAFailure) {
  const ProgramResult result = Shell("exec \"$@\" --pdf - >&-");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.err.find("/dev/stdout"), std::string::npos) << result.err;
}

TEST_F(OutputPlaces, APipeReceivesTheDocument) {
  const ProgramResult result = Shell(
      "mkfifo $scratch/pipe; cat $scratch/pipe >$scratch/got.pdf & \"$@\" --pdf "
      "$scratch/pipe && wait && test -p $scratch/pipe");
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_NE(TextsOf("got.pdf").find(kBillNumber), std::string::npos);
  const ProgramResult substituted = Shell("\"$@\" --pdf >(cat >$scratch/again.pdf) && wait $!");
  EXPECT_EQ(substituted.status, 0) << substituted.err;
  EXPECT_NE(TextsOf("again.pdf").find(kBillNumber), std::string::npos);
}

TEST_F(OutputPlaces, ADeviceStaysADevice) {
  const fs::path null = folder_ / "null";
  if (mknod(null.c_str(), S_IFCHR | 0666, makedev(1, 3)) != 0) {
    GTEST_SKIP() << "only root can make a device";
  }
  for (const char* option : {"--pdf", "--html"}) {
    const ProgramResult result = Shell("exec \"$@\" " + std::string(option) + " $scratch/null");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_TRUE(fs::is_character_file(null)) << option;
  }
}

TEST_F(OutputPlaces, AFolderInThePlaceOfAFileIsRefusedByItsName) {
  fs::create_directory(folder_ / "bills");
  for (const char* option : {"--pdf", "--html"}) {
    const ProgramResult result = Shell("exec \"$@\" " + std::string(option) + " $scratch/bills");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find((folder_ / "bills").string()), std::string::npos) << result.err;
    EXPECT_NE(result.err.find("文件夹"), std::string::npos) << result.err;
  }
  folder_.Write("file", "x");
  const ProgramResult png = Shell("exec \"$@\" --png $scratch/file");
  EXPECT_EQ(png.status, 1);
  EXPECT_NE(png.err.find((folder_ / "file").string()), std::string::npos) << png.err;
  EXPECT_NE(png.err.find("这不是一个文件夹"), std::string::npos) << png.err;
}

TEST_F(OutputPlaces, AFullDiskIsNamedAndTheOldFileStays) {
  if (Shell("unshare -m true").status != 0) GTEST_SKIP() << "no disk can be made";
  const std::string disk =
      "mkdir $scratch/disk; mount -t tmpfs -o size=8k none $scratch/disk; cd $scratch/disk; ";
  const std::string script =
      disk +
      "echo old >order.pdf; \"$@\" --pdf order.pdf; status=$?; cp order.pdf $scratch; "
      "ls -A >$scratch/names; exit $status";
  const ProgramResult pdf = Shell("exec unshare -m bash -c '" + script + "' bash \"$@\"");
  EXPECT_EQ(pdf.status, 1);
  EXPECT_EQ(pdf.err, "无法写入文件“order.pdf”：磁盘空间不足。 (format 销售订单三联)\n");
  EXPECT_EQ(Shell("cat $scratch/order.pdf $scratch/names").out, "old\norder.pdf\n");

  const ProgramResult png = Shell("exec unshare -m bash -c 'rmdir $scratch/disk; " + disk +
                                  "\"$@\" --png .' bash \"$@\"");
  EXPECT_EQ(png.status, 1);
  EXPECT_NE(png.err.find("page-001.png”：磁盘空间不足。 ("), std::string::npos) << png.err;
  EXPECT_NE(Shell("exec \"$@\" --html /dev/full").err.find("磁盘空间不足"), std::string::npos);
}

TEST_F(OutputPlaces, MoreRowsThanADocumentHasNumbersForAreToldInWords) {
  const ProgramResult result =
      Shell("exec \"$@\" --pdf $scratch/order.pdf",
            "with recursive n(i) as (select 1 union all select i+1 from n where i<32767) "
            "select 7 as FInterID, i as FItemName from n");
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err,
            "tdprint: not printed: the query gave 32767 rows, and a document can have 32766; "
            "print fewer bills at a time\n");
  EXPECT_FALSE(fs::exists(folder_ / "order.pdf"));
}

TEST(DocumentBounds, RowsThatBlankRowsPassOverNeedNoNumber) {
  MemoryRecordset rows({"FInterID"}, std::vector<std::vector<Value>>(32767, {std::int64_t{7}}));
  rows.MoveNext();
  EXPECT_THROW(RequireFewRows(rows, 0), Failure);
  EXPECT_NO_THROW(RequireFewRows(rows, 1));
  EXPECT_NO_THROW(rows.MoveNext()) << "the cursor stays where it is";
}

TEST_F(OutputPlaces, WhatKilledRunsLeftInTheTemporaryFolderIsSwept) {
  const auto make = [&](const std::string& name, bool isOld) {
    const fs::path made = folder_ / "temporary" / name;
    fs::create_directories(made / "picture");
    folder_.Write("temporary/" + name + "/picture/5.jpg", "half");
    const std::time_t then = std::time(nullptr) - (isOld ? 7200 : 60);
    const timespec times[] = {{then, 0}, {then, 0}};
    EXPECT_EQ(utimensat(AT_FDCWD, made.c_str(), times, 0), 0);
    return made;
  };
  make("tdprint-0000000000000000", true);
  make("tdprint-1111111111111111", false);
  make("tdprint-orders", true);
  const Descriptor used(open(make("tdprint-2222222222222222", true).c_str(), O_RDONLY));
  ASSERT_EQ(flock(used.Number(), LOCK_EX), 0);
  EXPECT_EQ(Shell("exec \"$@\" --pdf $scratch/order.pdf").status, 0);
  EXPECT_EQ(NamesIn("temporary"),
            (std::set<std::string>{"tdprint-1111111111111111", "tdprint-2222222222222222",
                                   "tdprint-orders"}));
}

}  // namespace
}  // namespace td
