// Formats as files, by the program.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "program_run.h"
#include "sample_files.h"
#include "scratch_folder.h"

namespace td {
namespace {

namespace fs = std::filesystem;

std::string ContentOf(const fs::path& path) {
  std::stringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

class FormatCommands : public testing::Test {
 protected:
  FormatCommands() {
    fs::create_directory(folder_ / "schema");
    fs::copy_file(QBTD_SOURCE_DIR "/examples/schema.sql", folder_ / "schema/schema.sql");
    MakeSampleDatabase(folder_ / "schema", folder_ / "a.db");
    logo_ = folder_.Write("logo.png", "not really a picture").string();
    Execute(
        "insert into TDBill(FTDBillID,FTranType,FTDBillName,FSelected,FRowsPerPage,FRowHeight) "
        "values(1,21,'订单',1,5,300);"
        "insert into TDVariant(FTranType,FVarCaption,FVarName) values(21,'客户','FCustName');"
        "insert into TDBillDetail(FTDBillID,FSite,FLeft,FTop,FWidth,FHeight,FObjectFieldName) "
        "values(1,1,1,2,3,4,'客户');"
        "insert into TDBillDetail(FTDBillID,FSite,FLeft,FTop,FWidth,FHeight,FTypeID,FPicturePath) "
        "values(1,1,1,2,3,4,2,'" +
        logo_ + "');");
  }

  void Execute(const std::string& sql) const {
    EXPECT_EQ(Run({"sqlite3", "-bail", (folder_ / "a.db").string(), sql}).status, 0);
  }
  [[nodiscard]] std::string Ask(const std::string& sql) const {
    return Run({"sqlite3", "-bail", (folder_ / "a.db").string(), sql}).out;
  }
  [[nodiscard]] ProgramResult Run(const std::vector<std::string>& command) const {
    return ProgramRun(command, folder_.Path()).Finish();
  }
  [[nodiscard]] ProgramResult Export(std::vector<std::string> more) const {
    more.insert(more.begin(), {TDPRINT_PROGRAM, "export-format", "--db",
                               "sqlite:" + (folder_ / "a.db").string(), "--type", "21"});
    return Run(more);
  }
  [[nodiscard]] ProgramResult Import(std::vector<std::string> more) const {
    more.insert(more.begin(), {TDPRINT_PROGRAM, "import-format", "--db",
                               "sqlite:" + (folder_ / "a.db").string()});
    return Run(more);
  }
  [[nodiscard]] std::string File(const std::string& name) const {
    return (folder_ / name).string();
  }

  ScratchFolder folder_;
  std::string logo_;
};

TEST_F(FormatCommands, TheSelectedFormatGoesToStandardOutput) {
  const ProgramResult result = Export({});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_NE(result.out.find("\"FTDBillName\": \"订单\""), std::string::npos);
  EXPECT_EQ(result.out.find("base64"), std::string::npos);
}

TEST_F(FormatCommands, AFormatThatIsNotThereIsTold) {
  const ProgramResult result = Export({"--format", "没有", "--out", File("a.json")});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "tdprint: the format wasn't written: 没有套打格式“没有”\n");
  EXPECT_FALSE(fs::exists(File("a.json")));
}

TEST_F(FormatCommands, PicturesTravelInTheFile) {
  ASSERT_EQ(Export({"--with-pictures", "--out", File("a.json")}).status, 0);
  fs::create_directory(File("pictures"));
  folder_.Write("pictures/logo.png", "another picture");
  const ProgramResult result =
      Import({"--format", "新", "--pictures", File("pictures"), File("a.json")});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(ContentOf(File("pictures/logo.png")), "another picture");
  EXPECT_EQ(ContentOf(File("pictures/logo-2.png")), "not really a picture");
  EXPECT_EQ(Ask("select FPicturePath from TDBillDetail where FTypeID=2 and FTDBillID=2"),
            File("pictures/logo-2.png") + "\n");
  // The next one finds it there.
  EXPECT_EQ(Import({"--format", "又", "--pictures", File("pictures"), File("a.json")}).status, 0);
  EXPECT_FALSE(fs::exists(File("pictures/logo-3.png")));
}

TEST_F(FormatCommands, ADryRunWritesNeitherRowsNorPictures) {
  ASSERT_EQ(Export({"--with-pictures", "--out", File("a.json")}).status, 0);
  fs::create_directory(File("pictures"));
  const ProgramResult result =
      Import({"--format", "新", "--pictures", File("pictures"), "--dry-run", File("a.json")});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_NE(result.out.find("  picture: " + File("pictures/logo.png")), std::string::npos);
  EXPECT_TRUE(fs::is_empty(File("pictures")));
  EXPECT_EQ(Ask("select count(*) from TDBill"), "1\n");
}

TEST_F(FormatCommands, APictureThatIsMissingIsAnError) {
  fs::remove(logo_);
  EXPECT_EQ(Export({"--out", File("a.json")}).status, 0);
  const ProgramResult result = Export({"--with-pictures", "--out", File("b.json")});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.err.find(logo_), std::string::npos) << result.err;
  EXPECT_FALSE(fs::exists(File("b.json")));
}

TEST_F(FormatCommands, AVariableThatIsThereKeepsItsColumn) {
  ASSERT_EQ(Export({"--out", File("a.json")}).status, 0);
  Execute("update TDVariant set FVarName='FPartner'");
  const ProgramResult result = Import({"--format", "新", File("a.json")});
  EXPECT_NE(result.out.find("variable kept: “客户” = FPartner (in the file: FCustName)"),
            std::string::npos)
      << result.out;
  EXPECT_EQ(Ask("select FVarName from TDVariant"), "FPartner\n");
}

TEST_F(FormatCommands, AnImportChangesNoSelection) {
  ASSERT_EQ(Export({"--out", File("a.json")}).status, 0);
  const ProgramResult result = Import({"--format", "新", File("a.json")});
  EXPECT_NE(result.out.find("not selected"), std::string::npos) << result.out;
  EXPECT_EQ(Ask("select FTDBillName from TDBill where FSelected=1"), "订单\n");
  EXPECT_EQ(Import({"--type", "22", File("a.json")}).status, 0);
  EXPECT_EQ(Ask("select FSelected from TDBill where FTranType=22"), "1\n");
}

TEST_F(FormatCommands, ABrokenFileWritesNothing) {
  ASSERT_EQ(Export({"--out", File("a.json")}).status, 0);
  std::string content = ContentOf(File("a.json"));
  content.replace(content.find("\"FTop\""), 6, "\"FTopp\"");
  const ProgramResult result = Import({"--type", "22", folder_.Write("b.json", content).string()});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "tdprint: the format wasn't imported: " + File("b.json") +
                            ": items[0].FTopp：没有这个列\n");
  EXPECT_EQ(Ask("select count(*) from TDBill"), "1\n");
  EXPECT_EQ(Import({File("nowhere.json")}).status, 1);
}

TEST_F(FormatCommands, DifferencesAreToldAsDiffDoes) {
  ASSERT_EQ(Export({"--out", File("a.json")}).status, 0);
  const ProgramResult equal = Run({TDPRINT_PROGRAM, "diff-format", File("a.json"), File("a.json")});
  EXPECT_EQ(equal.status, 0);
  EXPECT_EQ(equal.out, "");
  Execute("update TDBill set FRowHeight=567");
  ASSERT_EQ(Export({"--with-pictures", "--out", File("b.json")}).status, 0);
  const ProgramResult result =
      Run({TDPRINT_PROGRAM, "diff-format", File("a.json"), File("b.json")});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out,
            "format: FRowHeight: 300 → 567 (5.29 → 10 mm)\npicture added: " + logo_ + "\n");
  EXPECT_EQ(Run({TDPRINT_PROGRAM, "diff-format", File("a.json"), File("c.json")}).status, 2);
}

}  // namespace
}  // namespace td
