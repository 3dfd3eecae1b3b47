// tdprint as a program: its exit status, its errors and its files.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "program_run.h"
#include "scratch_folder.h"

namespace td {
namespace {

namespace fs = std::filesystem;

class TdprintProgram : public testing::Test {
 protected:
  TdprintProgram() {
    sqlite3_open((folder_ / "bills.db").c_str(), &database_);
    std::stringstream schema;
    schema << std::ifstream(QBTD_SOURCE_DIR "/examples/schema.sql").rdbuf();
    Execute(schema.str());
    Execute(R"(
      insert into TDBill (FTDBillID, FTranType, FTDBillName, FSelected, FPaperSize, FPaperWidth,
                          FPaperHeight, FRowsPerPage, FRowHeight)
        values (1, 21, '两行订单', 1, 256, 13663, 7937, 2, 400), (2, 22, '未选', 0, 9, 0, 0, 2, 400);
      insert into TDVariant (FTranType, FVarCaption, FVarName) values (21, '品名', 'FItemName');
      insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FTypeID, FIsVariant,
                                FObjectFieldName, FObjectCaption, FFormatString, FFontName, FFontSize,
                                FAlignMent)
        values (1, 1, 1000, 500, 4000, 400, 0, 0, '', '订单抬头', '', '宋体', 12, 0),
               (1, 3, 1000, 2000, 4000, 400, 0, 1, '品名', '品名', '', '宋体', 12, 0);
    )");
  }
  ~TdprintProgram() override { sqlite3_close(database_); }

  void Execute(const std::string& sql) {
    ASSERT_EQ(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database_);
  }

  [[nodiscard]] std::string Connection() const {
    return "sqlite:" + (folder_ / "bills.db").string();
  }

  [[nodiscard]] std::vector<std::string> PrintCommand(const std::vector<std::string>& more) const {
    std::vector<std::string> command = {TDPRINT_PROGRAM, "print", "--db",   Connection(),
                                        "--type",        "21",    "--data", kRows};
    command.insert(command.end(), more.begin(), more.end());
    return command;
  }
  [[nodiscard]] ProgramResult Run(const std::vector<std::string>& command) const {
    return ProgramRun(command, folder_.Path()).Finish();
  }
  [[nodiscard]] ProgramResult Print(const std::vector<std::string>& more) const {
    return Run(PrintCommand(more));
  }
  // The texts of a PDF in reading order, pages separated by form feeds.
  [[nodiscard]] std::string Texts(const fs::path& pdf) const {
    return Run({"pdftotext", "-layout", pdf.string(), "-"}).out;
  }
  // Distance of a text's top from the page's top in points; below 0 if it isn't there.
  [[nodiscard]] double TopOf(const std::string& text, const fs::path& pdf) const {
    const std::string boxes = Run({"pdftotext", "-bbox", pdf.string(), "-"}).out;
    const std::size_t end = boxes.find(">" + text + "<");
    if (end == std::string::npos) return -1;
    const std::size_t top = boxes.rfind("yMin=\"", end);
    return std::stod(boxes.substr(top + 6));
  }

  static constexpr const char* kRows =
      "select 7 as FInterID, '大米' as FItemName union all select 7, '花生油' "
      "union all select 7, '绿豆'";

  const ScratchFolder folder_;
  sqlite3* database_ = nullptr;
};

bool IsOneLine(const std::string& text) {
  return std::count(text.begin(), text.end(), '\n') == 1 && text.back() == '\n';
}

TEST_F(TdprintProgram, PrintsTheSelectedFormatIntoAPdf) {
  const fs::path pdf = folder_ / "order.pdf";
  const ProgramResult result = Print({"--pdf", pdf.string()});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "");
  const std::string texts = Texts(pdf);
  for (const char* text : {"订单抬头", "大米", "花生油", "绿豆"}) {
    EXPECT_NE(texts.find(text), std::string::npos) << text;
  }
  EXPECT_EQ(std::count(texts.begin(), texts.end(), '\f'), 2) << "two rows a page";
}

TEST_F(TdprintProgram, PrintsWhatAFileOfOptionsSays) {
  const fs::path pdf = folder_ / "order.pdf";
  const fs::path options =
      folder_.Write("order.tdprint",
                    "db = " + Connection() + "\ntype = 21\ndata = " + kRows + "\nonly-variant\n");
  const ProgramResult result =
      Run({TDPRINT_PROGRAM, "print", "--config", options.string(), "--pdf", pdf.string()});
  EXPECT_EQ(result.status, 0) << result.err;
  const std::string texts = Texts(pdf);
  EXPECT_NE(texts.find("花生油"), std::string::npos);
  EXPECT_EQ(texts.find("订单抬头"), std::string::npos);
}

TEST_F(TdprintProgram, LeavesTheFormsOwnPrintOutWhenItIsPrePrinted) {
  const fs::path pdf = folder_ / "order.pdf";
  EXPECT_EQ(Print({"--only-variant", "--pdf", pdf.string()}).status, 0);
  const std::string texts = Texts(pdf);
  EXPECT_EQ(texts.find("订单抬头"), std::string::npos);
  EXPECT_NE(texts.find("大米"), std::string::npos);
}

TEST_F(TdprintProgram, BeginsBelowTheRowsThatAreUsedUp) {
  EXPECT_EQ(Print({"--pdf", (folder_ / "whole.pdf").string()}).status, 0);
  EXPECT_EQ(Print({"--blank-rows", "1", "--pdf", (folder_ / "later.pdf").string()}).status, 0);
  const double rowHeight = 400 / 20.0;
  EXPECT_NEAR(TopOf("花生油", folder_ / "later.pdf"), TopOf("花生油", folder_ / "whole.pdf"), 0.1);
  EXPECT_NEAR(TopOf("花生油", folder_ / "later.pdf") - TopOf("大米", folder_ / "whole.pdf"),
              rowHeight, 0.1);
  EXPECT_LT(TopOf("大米", folder_ / "later.pdf"), 0);
}

TEST_F(TdprintProgram, BeginsANewPageAtEachStockArea) {
  const fs::path pdf = folder_ / "areas.pdf";
  const std::string rows =
      "select 7 as FInterID, '大米' as FItemName, 'A1' as FStockArea "
      "union all select 8, '花生油', 'A2' union all select 8, '绿豆', 'B1'";
  const ProgramResult result = Run({TDPRINT_PROGRAM, "print", "--db", Connection(), "--type", "21",
                                    "--data", rows, "--by-area", "--pdf", pdf.string()});
  EXPECT_EQ(result.status, 0) << result.err;
  const std::string texts = Texts(pdf);
  EXPECT_EQ(std::count(texts.begin(), texts.end(), '\f'), 2);
  EXPECT_LT(texts.find("花生油"), texts.find('\f')) << "two bills of one area on one page";
  EXPECT_GT(texts.find("绿豆"), texts.find('\f'));
}

TEST_F(TdprintProgram, SaysThatAPreviewNeedsADisplay) {
  const ProgramResult result =
      Run({TDPRINT_PROGRAM, "preview", "--db", Connection(), "--type", "21", "--data", kRows});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(IsOneLine(result.err)) << result.err;
  EXPECT_NE(result.err.find("display"), std::string::npos);
}

TEST_F(TdprintProgram, WritesOnePngFileForEachPage) {
  const ProgramResult result = Print({"--png", (folder_ / "pages").string()});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_TRUE(fs::exists(folder_ / "pages/page-001.png"));
  EXPECT_TRUE(fs::exists(folder_ / "pages/page-002.png"));
  EXPECT_FALSE(fs::exists(folder_ / "pages/page-003.png"));
}

TEST_F(TdprintProgram, WritesOneHtmlFile) {
  const ProgramResult result = Print({"--html", (folder_ / "order.html").string()});
  EXPECT_EQ(result.status, 0) << result.err;
  std::stringstream html;
  html << std::ifstream(folder_ / "order.html").rdbuf();
  EXPECT_NE(html.str().find("花生油"), std::string::npos);
}

TEST_F(TdprintProgram, TellsThatPartOfTheBillMayBeMissing) {
  Execute("update TDBillDetail set FLeft='here' where FSite=3");
  const ProgramResult result = Print({"--pdf", (folder_ / "order.pdf").string()});
  EXPECT_EQ(result.status, 3);
  EXPECT_NE(result.err, "");
  EXPECT_TRUE(fs::exists(folder_ / "order.pdf"));
}

TEST_F(TdprintProgram, ADatabaseThatDoesNotOpenIsOneLineAndNothingIsPrinted) {
  const ProgramResult result =
      Run({TDPRINT_PROGRAM, "print", "--db", "sqlite:" + (folder_ / "none/bills.db").string(),
           "--type", "21", "--data", kRows, "--pdf", (folder_ / "order.pdf").string()});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(IsOneLine(result.err)) << result.err;
  EXPECT_EQ(result.err.rfind("tdprint: the database can't be opened: ", 0), 0U) << result.err;
  EXPECT_FALSE(fs::exists(folder_ / "order.pdf"));
}

TEST_F(TdprintProgram, AStatementThatFailsIsOneLineAndNothingIsPrinted) {
  for (const char* sql : {"select * from nothing", "selekt 1", "select 1; select 2", "",
                          "update TDBill set FSelected=FSelected"}) {
    const ProgramResult result =
        Run({TDPRINT_PROGRAM, "print", "--db", Connection(), "--type", "21", "--data", sql, "--pdf",
             (folder_ / "order.pdf").string()});
    EXPECT_EQ(result.status, 1) << sql;
    EXPECT_TRUE(IsOneLine(result.err)) << result.err;
    EXPECT_EQ(result.err.rfind("tdprint: the rows can't be read: ", 0), 0U) << result.err;
  }
}

TEST_F(TdprintProgram, DataOnlyReads) {
  const fs::path pdf = folder_ / "order.pdf";
  const std::string deletion = "delete from TDVariant where FTranType=21 returning 7 as FInterID";
  const fs::path options = folder_.Write(
      "order.tdprint", "db = " + Connection() + "\ntype = 21\ndata = " + deletion + "\n");
  for (const ProgramResult& result :
       {Run({TDPRINT_PROGRAM, "print", "--db", Connection(), "--type", "21", "--data", deletion,
             "--pdf", pdf.string()}),
        Run({TDPRINT_PROGRAM, "print", "--config", options.string(), "--pdf", pdf.string()})}) {
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(IsOneLine(result.err)) << result.err;
    EXPECT_EQ(result.err.rfind("tdprint: the rows can't be read: ", 0), 0U) << result.err;
    EXPECT_FALSE(fs::exists(pdf));
  }
  EXPECT_EQ(Print({"--pdf", pdf.string()}).status, 0);
  EXPECT_NE(Texts(pdf).find("花生油"), std::string::npos) << "the variable is still there";
}

TEST_F(TdprintProgram, AQueryWithoutRowsSaysSoAndNothingIsPrinted) {
  const fs::path pdf = folder_ / "order.pdf";
  const std::string none = std::string("select * from (") + kRows + ") where FInterID=8";
  const ProgramResult result = Run({TDPRINT_PROGRAM, "print", "--db", Connection(), "--type", "21",
                                    "--data", none, "--pdf", pdf.string()});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "tdprint: not printed: the query gave no row\n");
  EXPECT_FALSE(fs::exists(pdf));
}

TEST_F(TdprintProgram, RowsWithoutTheBillsNumberAreToldByTheColumnsName) {
  for (const char* sql : {"select 7 as FBillID, '大米' as FItemName",
                          "select FTranType from TDBill where FTranType=0"}) {
    const ProgramResult result =
        Run({TDPRINT_PROGRAM, "print", "--db", Connection(), "--type", "21", "--data", sql, "--pdf",
             (folder_ / "order.pdf").string()});
    EXPECT_EQ(result.status, 1) << sql;
    EXPECT_EQ(result.err, "tdprint: not printed: the rows have no column FInterID\n");
  }
  EXPECT_EQ(
      Run({TDPRINT_PROGRAM, "print", "--db", Connection(), "--type", "21", "--data",
           "select 7 as finterid, '大米' as FItemName", "--pdf", (folder_ / "order.pdf").string()})
          .status,
      0)
      << "columns are found without regard to case";
}

TEST_F(TdprintProgram, AFormatThatIsNotRegisteredIsOneLineAndNothingIsPrinted) {
  const ProgramResult named = Print({"--format", "没有'的", "--pdf", folder_ / "order.pdf"});
  EXPECT_EQ(named.status, 1);
  EXPECT_EQ(named.err, "tdprint: not printed: bill type 21 has no format named 没有'的\n");

  const ProgramResult unselected =
      Run({TDPRINT_PROGRAM, "print", "--db", Connection(), "--type", "22", "--data", kRows});
  EXPECT_EQ(unselected.status, 1);
  EXPECT_EQ(unselected.err, "tdprint: not printed: bill type 22 has no selected format\n");
}

TEST_F(TdprintProgram, ADatabaseWithoutFormatsIsOneLineAndNothingIsPrinted) {
  Execute("drop table TDBill");
  const ProgramResult result = Print({"--pdf", (folder_ / "order.pdf").string()});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(IsOneLine(result.err)) << result.err;
}

TEST_F(TdprintProgram, AFileThatCannotBeWrittenIsNotPrinted) {
  const ProgramResult result = Print({"--pdf", (folder_ / "no/such/folder/order.pdf").string()});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.err, "");
}

TEST_F(TdprintProgram, WithoutAnyPrinterNothingIsPrintedAndTheReasonIsTold) {
  const ProgramResult unnamed = Print({});
  EXPECT_EQ(unnamed.status, 1);
  EXPECT_NE(unnamed.err, "");
  const ProgramResult unknown = Print({"--printer", "Nobody"});
  EXPECT_EQ(unknown.status, 1);
  EXPECT_NE(unknown.err.find("Nobody"), std::string::npos) << unknown.err;
}

TEST_F(TdprintProgram, WrongUsageHasAStatusOfItsOwn) {
  EXPECT_EQ(Run({TDPRINT_PROGRAM, "print"}).status, 2);
  EXPECT_EQ(Print({"--pdf", "a.pdf", "--html", "a.html"}).status, 2);
}

TEST_F(TdprintProgram, WaitsForALockedDatabaseToBecomeFree) {
  Execute("begin exclusive");
  const fs::path pdf = folder_ / "order.pdf";
  ProgramRun run(PrintCommand({"--pdf", pdf.string()}), folder_.Path());
  std::this_thread::sleep_for(std::chrono::milliseconds(1500));
  EXPECT_FALSE(fs::exists(pdf));
  Execute("commit");
  EXPECT_EQ(run.Finish().status, 0);
  EXPECT_TRUE(fs::exists(pdf));
}

TEST_F(TdprintProgram, TheDemoPrintsEveryBillOfTheSample) {
  const fs::path out = folder_ / "demo";
  const ProgramResult result = Run(
      {TDPRINT_PROGRAM, "demo", "--out", out.string(), "--samples", QBTD_SOURCE_DIR "/examples"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_TRUE(fs::exists(out / "sample.db"));
  EXPECT_NE(result.out.find(out.string() + ":"), std::string::npos) << "says where it all is";
  EXPECT_EQ(result.out.find("rinter"), std::string::npos) << "no printer was asked for";
  int documents = 0;
  for (const fs::directory_entry& entry : fs::directory_iterator(out)) {
    if (entry.path().extension() != ".pdf") continue;
    ++documents;
    fs::path file = entry.path();
    EXPECT_NE(result.out.find(file.stem().string()), std::string::npos) << file;
    EXPECT_TRUE(fs::exists(file.replace_extension(".html"))) << file;
    EXPECT_TRUE(fs::exists(file.replace_extension() / "page-001.png")) << file;
  }
  EXPECT_GE(documents, 3);
}

TEST_F(TdprintProgram, TheDemoPrintsOnAPrinterOnlyWhenItIsNamed) {
  const ProgramResult result = Run({TDPRINT_PROGRAM, "demo", "--out", (folder_ / "demo").string(),
                                    "--samples", QBTD_SOURCE_DIR "/examples", "--printer", "Dot"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.err.find("Dot"), std::string::npos) << result.err;
}

TEST_F(TdprintProgram, AnUnknownPaperCodeIsToldInOneLineAndByTheStatus) {
  Execute("update TDBill set FPaperSize=777");
  const ProgramResult result = Print({"--pdf", (folder_ / "bill.pdf").string()});
  EXPECT_EQ(result.status, 3);
  EXPECT_TRUE(IsOneLine(result.err)) << result.err;
  EXPECT_NE(result.err.find("777"), std::string::npos) << result.err;
  EXPECT_NE(Texts(folder_ / "bill.pdf").find("绿豆"), std::string::npos);
}

TEST_F(TdprintProgram, ChineseEnvelopesHaveTheirSizeWithoutAnyPrinter) {
  Execute("update TDBill set FPaperSize=105");
  EXPECT_EQ(Print({"--pdf", (folder_ / "bill.pdf").string()}).status, 0);
  const std::string information = Run({"pdfinfo", (folder_ / "bill.pdf").string()}).out;
  EXPECT_NE(information.find("918.4"), std::string::npos) << information;   // 324 mm
  EXPECT_NE(information.find("1298.2"), std::string::npos) << information;  // 458 mm
}

TEST_F(TdprintProgram, ABarcodeThatCannotBeMadeIsToldOnceAndTheRestIsPrinted) {
  Execute(R"(
    insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FTypeID, FIsVariant,
                              FObjectFieldName, FObjectCaption, FFontName, FFontSize, FAlignMent)
      values (1, 3, 6000, 500, 4000, 800, 0, 1, '<单号条码图>', '', '宋体', 12, 0),
             (1, 3, 1000, 3000, 4000, 400, 0, 0, '', '条码之后', '宋体', 12, 0);
  )");
  const std::string rows =
      "select 7 as FInterID, '大米' as FItemName, '' as FBillNo union all select 7, '豆', '' "
      "union all select 7, '油', ''";
  const ProgramResult result = Run({TDPRINT_PROGRAM, "print", "--db", Connection(), "--type", "21",
                                    "--data", rows, "--pdf", (folder_ / "bill.pdf").string()});
  EXPECT_EQ(result.status, 3);
  EXPECT_TRUE(IsOneLine(result.err)) << result.err;
  EXPECT_NE(result.err.find("条码内容为空"), std::string::npos) << result.err;
  const std::string texts = Texts(folder_ / "bill.pdf");
  EXPECT_NE(texts.find("条码之后"), std::string::npos) << texts;
  EXPECT_NE(texts.find("条码之后", texts.find('\f')), std::string::npos) << texts;
}

TEST_F(TdprintProgram, ADialogThatCannotBeShownIsRefusedInOneLine) {
  const std::vector<std::vector<std::string>> commands = {
      {TDPRINT_PROGRAM, "settings", "--db", Connection(), "--type", "21"},
      {TDPRINT_PROGRAM, "area-printers", "--db", Connection()}};
  for (const std::vector<std::string>& command : commands) {
    const ProgramResult result = Run(command);
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(IsOneLine(result.err)) << result.err;
    EXPECT_NE(result.err.find("没有可用的显示"), std::string::npos) << result.err;
  }
}

TEST_F(TdprintProgram, ADialogNeedsADatabase) {
  const ProgramResult result =
      Run({TDPRINT_PROGRAM, "area-printers", "--db", "sqlite:" + (folder_ / "none.db").string()});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(IsOneLine(result.err)) << result.err;
  EXPECT_NE(result.err.find("the database can't be opened"), std::string::npos) << result.err;
}

}  // namespace
}  // namespace td
